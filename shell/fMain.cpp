// SPDX-License-Identifier: MIT
#include "shell/fMain.h"

#include <QApplication>
#include <QGroupBox>
#include <QMenuBar>
#include <QResizeEvent>
#include <QScreen>
#include <QStyle>
#include <cmath>
#include <concepts>

#include "analysis/Reports.h"
#include "shell/FileDialogs.h"
#include "shell/RulePanel.h"
#include "shell/fIntro.h"
#include "shell/fOutput.h"
#include "views/CodePage.h"
#include "views/MessageBox.h"
#include "views/NodeLook.h"
#include "views/PanelLayout.h"
#include "views/Picture.h"
#include "views/Twips.h"

namespace {

// Positions and sizes at design time, in twips. The frames get their final positions when the tree is created.
constexpr double designWidth = 10785;
constexpr double designHeight = 5280;
constexpr QRectF designOfFrN(120, 0, 2895, 1695);
constexpr QRectF designOfFrW(3960, 0, 3375, 1695);
constexpr QRectF designOfFrRule(120, 1800, 10575, 3400);

// While this exists, the cursor shows that the program is busy. Window systems show it at once, without any event.
class BusyCursor {
  public:
    BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

struct MenuItem {
    const char* menu;  // the name of the menu that contains it; empty for the menu bar, null for none
    const char* name;
    const char* caption;
    void (fMain::*command)();  // null for a menu
};
constexpr MenuItem menuItems[] = {
    {"", "mnuFile", "&File", nullptr},
    {"mnuFile", "mnuIntro", "&Introduction", &fMain::mnuIntro_Click},
    {"mnuFile", "mnuOpen", "&Open", nullptr},
    {"mnuOpen", "mnuNavOpen", "Open &Nav. File", &fMain::mnuNavOpen_Click},
    {"mnuOpen", "mnuDisOpen", "Open &Web File", &fMain::mnuDisOpen_Click},
    {"mnuFile", "mnuHelp", "&Help", &fMain::mnuHelp_Click},
    {"mnuFile", "mnuExit", "E&xit", &fMain::mnuExit_Click},
    {"", "mnuNavigation", "&Navigation", nullptr},
    {"mnuNavigation", "mnuNavNew", "&New", &fMain::mnuNavNew_Click},
    {"mnuNavigation", "mnuNavSave", "&Save to Text File", &fMain::mnuNavSave_Click},
    {"mnuNavigation", "mnuCollapse", "&Collapse Nodes", &fMain::mnuCollapse_Click},
    {"mnuNavigation", "mnuNavRenum", "&Re-Number", &fMain::mnuNavRenum_Click},
    {"mnuNavigation", "mnuCheckNav", "&Analysis of Nav Scheme", &fMain::showReportOf<CheckNav>},
    {"mnuNavigation", "mnuNavToDo", "Action &To Do", &fMain::showReportOf<NavToDo>},
    {"", "mnuDisplay", "&Web", nullptr},
    {"mnuDisplay", "mnuDisSave", "&Save to Text File", &fMain::mnuDisSave_Click},
    {"mnuDisplay", "mnuCheckWeb", "&Analysis of Web Scheme", &fMain::showReportOf<CheckScheme>},
    {"mnuDisplay", "mnuWebToDo", "Action &To Do", &fMain::showReportOf<WebToDo>},
    {nullptr, "mnuPopUp", "Popup", nullptr},
    {"mnuPopUp", "mnuChild", "&Add Child   (Ins)", &fMain::mnuChild_Click},
    {"mnuPopUp", "mnuEdit", "&Edit Node   (F2)", &fMain::mnuEdit_Click},
    {"mnuPopUp", "mnuDelete", "&Delete       (Del)", &fMain::mnuDelete_Click},
    {nullptr, "mnuWPopUp", "&WPopUp", nullptr},
    {"mnuWPopUp", "mnuAddP", "&Add Paragraph", &fMain::mnuAddP_Click},
    {"mnuWPopUp", "mnuEditP", "&Edit Paragraph", &fMain::mnuEditP_Click},
    {"mnuWPopUp", "mnuDeleteP", "&Delete Paragraph", &fMain::mnuDeleteP_Click},
    {"mnuWPopUp", "mnuDisplayAll", "Display &Full Table XST2", &fMain::mnuDisplayAll_Click},
    {"mnuWPopUp", "mnuOrphans", "Display &Orphans", &fMain::mnuOrphans_Click},
};

QString programFolder() {
    return QCoreApplication::applicationDirPath();
}

QGroupBox* makeFrame(const char* name, const char* caption, const QRectF& place, QWidget* parent) {
    auto* frame = new QGroupBox(QString::fromLatin1(caption), parent);
    frame->setObjectName(QString::fromLatin1(name));
    frame->setGeometry(toPixels(place, parent->logicalDpiX()));
    return frame;
}

template <class Grid>
Grid* makeGrid(const char* name, QGroupBox* frame) {
    auto* grid = new Grid(frame);
    grid->setObjectName(QString::fromLatin1(name));
    grid->setAccessibleName(frame->title());
    return grid;
}

}  // namespace

fMain::fMain()
    : inner_(new QWidget(this)),
      frN_(makeFrame("frN", "Navigational Table - XST1", designOfFrN, inner_)),
      frW_(makeFrame("frW", "Web Page Display Table- XST2", designOfFrW, inner_)),
      frRule_(new RulePanel(inner_)),
      flexNav_(makeGrid<NavGrid>("flexNav", frN_)),
      flexWeb_(makeGrid<WebGrid>("flexWeb", frW_)),
      help_(programFolder()),
      keys_(*this, {{.key = Qt::Key_F1, .run = [this] { mnuHelp_Click(); }},
                    {.key = Qt::Key_Menu, .run = [this] { popUpAtFocus(); }},
                    {.key = Qt::Key_F10, .run = [this] { popUpAtFocus(); }, .modifiers = Qt::ShiftModifier}}) {
    setObjectName(QStringLiteral("fMain"));
    setWindowTitle(QStringLiteral("Reporting Scheme Wizard for Pelmo " WIZARD_VERSION));
    setCentralWidget(inner_);
    makeMenus();

    const int dpi = logicalDpiX();
    frRule_->setGeometry(toPixels(designOfFrRule, dpi));
    for (const auto& picture : pictureSources()) {
        auto* source = new Picture(QIcon(QString::fromLatin1(picture.file)), inner_);
        source->setObjectName(QString::fromLatin1(picture.name));
        source->hide();
    }
    resize(toPixels(designWidth, dpi), toPixels(designHeight, dpi) + menuBar()->sizeHint().height());
}

void fMain::makeMenus() {
    for (const auto& item : menuItems) {
        const auto name = QString::fromLatin1(item.name);
        const auto caption = QString::fromLatin1(item.caption);
        if (item.command) {
            auto* action = find<QMenu>(item.menu).addAction(caption);
            action->setObjectName(name);
            const auto command = item.command;
            connect(action, &QAction::triggered, this, [this, command] { attempt([&] { (this->*command)(); }); });
        } else {
            auto* menu = !item.menu   ? new QMenu(caption, this)
                         : *item.menu ? find<QMenu>(item.menu).addMenu(caption)
                                      : menuBar()->addMenu(caption);
            menu->setObjectName(name);
        }
    }
}

void fMain::StartScheme() {
    oNavs = std::make_unique<clsNavSchemes>();
    oNavs->inform = [this](std::string_view message) {
        auto* form = QApplication::activeModalWidget();
        showMessage(form ? form : this, decode(message));
    };
    connectScheme();
    oNavs->SetGrid(*flexNav_);
    oNavs->SetTreeview(*this);
    // Clicks and keys on the tree are commands, just like those of the menus.
    myTree_->NodeClick = [this, click = std::move(myTree_->NodeClick)] {
        attempt([&] {
            try {
                click();
            } catch (const NotDrawn&) {  // half-way: do it again, with more memory
                const MemoryReserve::Spent more(reserve_);
                click();
            }
        });
    };
    myTree_->KeyUp = [this, keyUp = std::move(myTree_->KeyUp)](int code) { attempt([&] { keyUp(code); }); };
    oNavs->NewScheme();
}

// The one place that handles commands running out of memory. A command changes the schemes completely or not at all;
// if the change was made but could not be drawn, this draws it with the help of the reserve.
void fMain::attempt(const std::function<void()>& command) {
    try {
        command();
    } catch (const NotDrawn&) {
        const MemoryReserve::Spent more(reserve_);
        if (!redraw())
            showMessage(this, QStringLiteral("There is not enough memory to show the whole scheme. Nothing is lost, "
                                             "and you can save it."));
    } catch (const std::bad_alloc&) {
        const MemoryReserve::Spent more(reserve_);
        showMessage(this, QStringLiteral("There is not enough memory for this command. The scheme has not changed."));
    }
}

// @return whether everything could be drawn; a view that could not be drawn is empty
bool fMain::redraw() {
    bool isComplete = true;
    const auto draw = [&isComplete](auto step) {
        try {
            step();
        } catch (const NotDrawn&) {
            isComplete = false;
        }
    };
    draw([this] { oNavs->DispInTV(); });
    if (!isComplete) draw([this] { oNavs->DispInGrid(); });
    draw([this] { oNavs->oWebs.DispAgain(); });
    return isComplete;
}

void fMain::Form_Load() {
    StartScheme();
    mnuIntro_Click();
    showMessage(this, QStringLiteral("If you need to be familiarized with the working of this Wizard, \r\n"
                                     "Please open the Files XST1.txt and XST2.txt for getting started..."));
}

void fMain::Maximize() {
    setWindowState(windowState() | Qt::WindowMaximized);
}

NavTreeView& fMain::CreateTree() {
    auto* images = new ImageList(inner_);
    images->setObjectName(QStringLiteral("myImage"));
    for (const auto& picture : pictureSources())
        images->add(QString::fromLatin1(picture.key),
                    static_cast<Picture*>(inner_->findChild<QWidget*>(QString::fromLatin1(picture.name)))->icon());
    myTree_ = new NavTree(*images, inner_);
    myTree_->setObjectName(QStringLiteral("myTree"));
    QWidget::setTabOrder(myTree_, flexNav_);
    QWidget::setTabOrder(flexNav_, flexWeb_);
    myTree_->setFocus();
    return *myTree_;
}

// Before a maximized window is on the screen, its inner size can only be estimated: the work area without frame and
// menu bar. The first resize of the visible maximized window corrects it.
void fMain::LayOut(clsWebSchemes& webs) {
    const auto workArea = screen()->availableSize();
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
    placePanels({workArea.width(), workArea.height() - title - menuBar()->sizeHint().height()}, webs);
}

void fMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (laidOutMaximized_ || !oNavs || !isVisible() || !isMaximized() || !event->spontaneous()) return;
    laidOutMaximized_ = true;
    placePanels({width(), height() - menuBar()->height()}, oNavs->oWebs);
}

void fMain::placePanels(QSize inner, clsWebSchemes& webs) {
    const int dpi = logicalDpiX();
    const auto at =
        layOutPanels({toTwips(inner.width(), dpi), toTwips(inner.height(), dpi)}, designOfFrRule.height());
    myTree_->setGeometry(toPixels(at.tree, dpi));
    frN_->setGeometry(toPixels(at.frN, dpi));
    flexNav_->setGeometry(toPixels(at.flexNav, dpi));
    frW_->setGeometry(toPixels(at.frW, dpi));
    frRule_->setGeometry(toPixels(at.frRule, dpi));
    const auto whole = [](double twips) { return static_cast<Twips>(std::lrint(twips)); };
    webs.SetGrid(*flexWeb_, whole(at.flexWeb.left()), whole(at.flexWeb.top()), whole(at.flexWeb.width()),
                 whole(at.flexWeb.height()));
}

std::filesystem::path fMain::GetOpenName(const QString& sInitialDir) {
    const MemoryReserve::Spent more(reserve_);  // nothing can help the dialog's thread if it runs out of memory
    const auto name = askOpenName(this, sInitialDir);
    activateWindow();
    return name;
}

std::filesystem::path fMain::GetSaveAsName(const QString& sInName, const QString& sInitialDir) {
    const auto name = askSaveName(this, sInName, sInitialDir);
    // The dialog closes together with the question about an old file. A window manager that is just giving the
    // keyboard to the dialog may then give it to no window.
    activateWindow();
    return name;
}

void fMain::mnuIntro_Click() {
    const MemoryReserve::Spent more(reserve_);
    fIntro introduction(help_, isVisible() ? this : nullptr);
    introduction.exec();
}

void fMain::mnuNavOpen_Click() {
    const auto name = GetOpenName(programFolder());
    if (name.empty()) return;
    const BusyCursor busy;
    oNavs->LoadData(name);
}

void fMain::mnuDisOpen_Click() {
    const auto name = GetOpenName(programFolder());
    if (name.empty()) return;
    const BusyCursor busy;
    oNavs->LoadWeb(name);
}

void fMain::mnuHelp_Click() {
    help_.show(this);
}

void fMain::mnuExit_Click() {
    close();
}

void fMain::mnuNavNew_Click() {
    oNavs->NewScheme();
}

// A failed save of the nodes is not reported. That is given; but the save dialog has refused files that cannot be
// written.
void fMain::mnuNavSave_Click() {
    const MemoryReserve::Spent more(reserve_);
    const auto name = GetSaveAsName(QStringLiteral("XST1.txt"), programFolder());
    if (name.empty()) return;
    const BusyCursor busy;
    static_cast<void>(oNavs->SaveData(name));
}

void fMain::mnuCollapse_Click() {
    oNavs->mLastN = "1";  // no node has this key, so nothing will be selected
    oNavs->DispInTV();
}

void fMain::mnuNavRenum_Click() {
    const BusyCursor busy;
    try {
        oNavs->Renumber();
    } catch (const NotDrawn&) {
        fileAnew();
        throw;
    }
    fileAnew();
}

// Commands find a node by the ID that the tree has for it, so after a renumbering the nodes are filed anew. If there
// is not enough memory for that, what the screen shows is freed first: it takes several times as much.
void fMain::fileAnew() {
    const MemoryReserve::Spent more(reserve_);
    try {
        oNavs->FileAnew();
    } catch (const std::bad_alloc&) {
        const clsNavSchemes nothing;
        myTree_->Fill(nothing);
        flexNav_->Fill(nothing);
        flexWeb_->Fill({});
        oNavs->FileAnew();
        throw NotDrawn();
    }
}

void fMain::mnuDisSave_Click() {
    const MemoryReserve::Spent more(reserve_);
    const auto name = GetSaveAsName(QStringLiteral("XST2.txt"), programFolder());
    if (name.empty()) return;
    bool saved = false;
    {
        const BusyCursor busy;
        saved = oNavs->SaveWeb(name);
    }
    if (!saved) showMessage(this, QStringLiteral("Unable to save file.."));
}

// The grids are not redrawn, although the analysis of paragraphs takes the orphans' nodes away from them.
template <auto report>
void fMain::showReportOf() {
    if constexpr (std::invocable<decltype(report), clsNavSchemes&>)
        showReport(report(*oNavs));
    else
        showReport(report(oNavs->oWebs));
}

void fMain::showReport(std::string report) {
    const MemoryReserve::Spent more(reserve_);
    if (!fOutput_) fOutput_ = new fOutput(help_, this);
    fOutput_->setSText(std::move(report));
    fOutput_->open();
}
