// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "model/clsNavSchemes.h"
#include "shell/HelpFile.h"
#include "shell/MemoryReserve.h"
#include "views/ImageList.h"
#include "views/NavTree.h"
#include "views/ReleasedKeys.h"
#include "views/SchemeGrid.h"

class QGroupBox;
class RulePanel;
class fOutput;

/// The main window. It owns the navigational scheme, shows it in a tree and two grids, and turns menu commands into
/// calls of the scheme. It holds no scheme data of its own and asks no questions: there is no "modified" flag.
class fMain final : public QMainWindow, private NavWindow {
  public:
    fMain();

    /// Starts up: creates a scheme with one node, then shows the introduction and a first message, each until it is
    /// closed. Call this once, before the window is shown.
    void Form_Load();
    /// The first part of `Form_Load`, without the windows that wait for the user.
    void StartScheme();

    std::unique_ptr<clsNavSchemes> oNavs;  ///< created at the start, never replaced

    // What the last right click was on. The commands of the popup menus act on it, even later.
    std::string sPopKey;  ///< key of the node, or of the paragraph
    std::string pPopKey;  ///< key of the paragraph's node; may be the header text of that column

    /// Asks the user which file to open; empty if the user cancels.
    [[nodiscard]] std::filesystem::path GetOpenName(const QString& sInitialDir);
    /// Asks the user which file to save to and suggests `sInName`; empty if the user cancels.
    [[nodiscard]] std::filesystem::path GetSaveAsName(const QString& sInName, const QString& sInitialDir);

    // The menu commands.
    template <auto report>  ///< a function of analysis/Reports.h
    void showReportOf();
    void mnuIntro_Click();
    void mnuNavOpen_Click();
    void mnuDisOpen_Click();
    void mnuHelp_Click();
    void mnuExit_Click();
    void mnuNavNew_Click();
    void mnuNavSave_Click();
    void mnuCollapse_Click();
    void mnuNavRenum_Click();
    void mnuDisSave_Click();
    void mnuChild_Click();
    void mnuEdit_Click();
    void mnuDelete_Click();
    void mnuAddP_Click();
    void mnuEditP_Click();
    void mnuDeleteP_Click();
    void mnuDisplayAll_Click();
    void mnuOrphans_Click();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void makeMenus();
    void attempt(const std::function<void()>& command);
    bool redraw();
    void fileAnew();
    void showReport(std::string report);
    void placePanels(QSize inner, clsWebSchemes& webs);
    template <class Widget>
    [[nodiscard]] Widget& find(const char* name) const {
        return *findChild<Widget*>(QString::fromLatin1(name));
    }

    // Editing: what the scheme's events and the popup menus do.
    void connectScheme();
    void popUpForNode(std::string skey, QPoint place);
    void popUpForParagraph(std::string skey, std::string pKey, QPoint place);
    void popUpAtFocus();
    void chooseFirst(const char* menu);
    void remember(const std::string& skey);
    void oNavs_oInsert(const std::string& skey);
    void oNavs_oEdit(const std::string& skey);
    void oNavs_oDelete(const std::string& skey);
    void editNode(const clsNavSchemes::Pointer& parent, const clsNavSchemes::Pointer& node);
    void editParagraph(const clsWebSchemes::Pointer& paragraph);
    void showPopKeyParagraphs();

    // What the scheme asks the window to do.
    void Maximize() override;
    NavTreeView& CreateTree() override;
    void LayOut(clsWebSchemes& webs) override;

    QWidget* inner_;
    QGroupBox* frN_;
    QGroupBox* frW_;
    RulePanel* frRule_;
    NavGrid* flexNav_;
    WebGrid* flexWeb_;
    NavTree* myTree_ = nullptr;
    fOutput* fOutput_ = nullptr;  // created with the first report
    HelpFile help_;
    MemoryReserve reserve_;
    ReleasedKeys keys_;
    bool laidOutMaximized_ = false;
};
