// SPDX-License-Identifier: MIT
#include "forms/EntryForm.h"

#include <QFocusEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <algorithm>

#include "forms/FieldNotes.h"
#include "forms/KeyLength.h"
#include "forms/ParameterChoices.h"
#include "model/Integer.h"
#include "views/CodePage.h"
#include "views/MessageBox.h"
#include "views/Twips.h"

namespace {

constexpr double fontPoints = 9.75;
constexpr double captionWidth = 1800;   // twips; longer captions wrap
constexpr double captionDrop = 45;      // twips; puts a caption level with the first line of its field
constexpr double helpWidth = 3900;      // twips, at least
constexpr double keyLengthWidth = 600;  // twips
constexpr double columnGap = 120;       // twips

constexpr QColor highlight(0xC0, 0xC0, 0xFF);

// Whatever the state of the field: a disabled one has the same background.
void setBackground(QWidget& field, const QColor& colour) {
    auto palette = field.palette();
    palette.setColor(QPalette::Base, colour);
    field.setPalette(palette);
}

QColor windowBackground() {
    return QGuiApplication::palette().color(QPalette::Base);
}

QColor tooltipBackground() {
    return QGuiApplication::palette().color(QPalette::ToolTipBase);
}

// A move of the focus inside the form, and not its coming back from another window or a menu.
bool isMoveInForm(const QEvent& focus) {
    const auto reason = static_cast<const QFocusEvent&>(focus).reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

QLabel* makeLabel(const char* name, const char* text, QWidget* parent) {
    auto* label = new QLabel(QString::fromLatin1(text), parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

}  // namespace

QFont formFont() {
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(fontPoints);
    font.setBold(true);
    return font;
}

EntryForm::EntryForm(const Plan& plan, QWidget* parent)
    : QDialog(parent), question_(plan.question), fields_(plan.fields), typeChoices_(plan.types) {
    setObjectName(QString::fromLatin1(plan.name));
    setWindowTitle(QString::fromLatin1(plan.caption));
    setFont(formFont());

    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    addFields(*grid);
    fillLists();  // to be measured
    types_->fit(types_->count());
    kinds_->fit(kinds_->count());
    setUsable("txtnn", false);  // until a character key is chosen: empty, it could not be left
    auto* fields = new QVBoxLayout;
    fields->addLayout(grid);
    fields->addStretch(1);

    lblDesc_ = makeLabel("lblDesc", "", this);
    lblDesc_->setWordWrap(true);
    lblDesc_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblDesc_->setMinimumSize(sizeOfHelp());
    auto* separator = new QFrame(this);
    separator->setObjectName(QStringLiteral("Line1"));
    separator->setFrameStyle(QFrame::HLine | QFrame::Sunken);

    auto* body = new QHBoxLayout;
    body->addLayout(fields, 3);
    body->addSpacing(toPixels(columnGap, logicalDpiX()));
    body->addWidget(lblDesc_, 2);
    rows_ = new QVBoxLayout(this);
    rows_->addLayout(body, 1);
    rows_->addWidget(separator);
    addFootnote("Label14", "F3: Save,       ESC: Cancel .   Enter: Move Field-toField", plan.hintFont);
}

void EntryForm::addFields(QGridLayout& grid) {
    QHBoxLayout* shared = nullptr;  // the fields of one row that have no label of their own
    for (const auto& field : fields_) {
        auto* input = makeInput(field);
        const int row = grid.rowCount();
        if (*field.label) {
            shared = nullptr;
            auto* label = makeLabel(field.label, field.caption, this);
            label->setWordWrap(true);
            label->setFixedWidth(toPixels(captionWidth, logicalDpiX()));
            label->setContentsMargins(0, toPixels(captionDrop, logicalDpiX()), 0, 0);
            label->setBuddy(input);
            input->setAccessibleName(label->text());
            grid.addWidget(label, row, 0, Qt::AlignTop);
            grid.addWidget(input, row, 1);
        } else {
            if (!shared) grid.addLayout(shared = new QHBoxLayout, row, 1);
            shared->addWidget(input);
            input->setAccessibleName(QString::fromLatin1(field.caption));
        }
    }
}

QWidget* EntryForm::makeInput(const EntryField& field) {
    QWidget* input = nullptr;
    if (field.kind == EntryField::TypeList || field.kind == EntryField::KindList) {
        auto* list = new ChoiceList(this);
        list->viewport()->installEventFilter(this);
        (field.kind == EntryField::TypeList ? types_ : kinds_) = list;
        list->Click = field.kind == EntryField::TypeList ? std::function<void()>([this] { typeChosen(); })
                                                         : std::function<void()>([this] { kindChosen(); });
        input = list;
    } else {
        auto* text = new EntryLine(this);
        if (field.kind == EntryField::KeyLength) {
            text->setFixedWidth(toPixels(keyLengthWidth, logicalDpiX()));
            connect(text, &QLineEdit::textChanged, this, &EntryForm::composeKey);
        }
        connect(text, &QLineEdit::textChanged, this, &EntryForm::updateNotes);
        input = text;
    }
    input->setObjectName(QString::fromLatin1(field.name));
    input->setAccessibleDescription(QString::fromLatin1(field.help));
    input->setWhatsThis(QString::fromLatin1(field.help));
    input->installEventFilter(this);
    inputs_[field.name] = input;
    return input;
}

// As large as the longest help needs, so that no choice changes the size of the form.
QSize EntryForm::sizeOfHelp() const {
    const int width = toPixels(helpWidth, logicalDpiX());
    int height = 0;
    const auto makeRoomFor = [&](const char* help) {
        const auto room = lblDesc_->fontMetrics().boundingRect(0, 0, width, QWIDGETSIZE_MAX, Qt::TextWordWrap,
                                                               QString::fromLatin1(help));
        height = std::max(height, room.height());
    };
    for (const auto& field : fields_) makeRoomFor(field.help);
    for (const auto& type : typeChoices_) makeRoomFor(type.help);
    for (const auto& kind : parameterChoices()) makeRoomFor(kind.help);
    return {width, height};
}

ElidedLabel& EntryForm::addHeading(const char* name) {
    auto* heading = new ElidedLabel(this);
    heading->setObjectName(QString::fromLatin1(name));
    rows_->insertWidget(0, heading);
    return *heading;
}

void EntryForm::addFootnote(const char* name, const char* text, const QFont& font) {
    auto* footnote = makeLabel(name, text, this);
    footnote->setFont(font);
    rows_->addWidget(footnote);
}

void EntryForm::load() {
    // The layout's own minimum leaves captions that wrap out, and adjustSize() takes two thirds of the screen at
    // most.
    setMinimumSize(sizeHint());
    resize(minimumSize());
    inputs_.at(fields_.front().name)->setFocus();
    oEH.raise = [this](clsEventHandler::Event event, QWidget* vControl) { answer(event, vControl); };
    oEH.SetForm(*this);
}

void EntryForm::fillLists(std::string_view left) {
    types_->clear();
    for (const auto& type : typeChoices_)
        if (left.find(type.entry[0]) == std::string_view::npos) types_->addItem(QString::fromLatin1(type.entry));
    kinds_->clear();
    for (const auto& kind : parameterChoices()) kinds_->addItem(QString::fromLatin1(kind.entry));
}

EntryLine& EntryForm::line(const char* name) const {
    return static_cast<EntryLine&>(*inputs_.at(name));
}

std::string EntryForm::valueOf(const char* name) const {
    const auto* input = inputs_.at(name);
    if (input == types_) return encode(types_->chosen().left(1));
    return line(name).bytes();
}

bool EntryForm::isFilled(const char* name) const {
    const auto* field = fieldOf(inputs_.at(name));
    return field->kind == EntryField::Line || field->kind == EntryField::CheckedNumber;
}

int EntryForm::placeOfType(std::string_view letter) const {
    const auto found = std::ranges::find(typeChoices_, letter,
                                         [](const TypeChoice& type) { return std::string_view(type.entry, 1); });
    return found == typeChoices_.end() ? -1 : static_cast<int>(found - typeChoices_.begin());
}

void EntryForm::chooseParameter(std::string_view parmIs) {
    const auto kind = readParameterKind(parmIs);
    if (!kind) return;
    kinds_->setListIndex(static_cast<int>(*kind));
    if (kind == ParameterKind::CKey) line("txtnn").setBytes(keyLengthOf(parmIs));
}

void EntryForm::typeChosen() {
    const auto entry = types_->chosen();
    for (const auto& type : typeChoices_) {
        if (entry != QLatin1String(type.entry)) continue;
        for (const char* name : type.disables)
            if (name) setUsable(name, false);
        for (const char* name : type.enables)
            if (name) setUsable(name, true);
        showHelp(type.help);
    }
    updateNotes();
}

void EntryForm::kindChosen() {
    const auto place = static_cast<std::size_t>(kinds_->ListIndex());
    const auto& kind = parameterChoices()[place];
    setUsable("txtnn", false);
    if (kind.kind == ParameterKind::CKey) {
        setUsable("txtnn", true);
        setBackground(line("txtnn"), tooltipBackground());
        composeKey();
    } else {
        line("txtParm").setBytes(parameterKinds[place].stored);
    }
    showHelp(kind.help);
    updateNotes();
}

// Without a number in txtnn, txtParm stays as it is.
void EntryForm::composeKey() {
    if (const auto length = keyLengthIn(line("txtnn").bytes())) line("txtParm").setBytes("CKey" + *length);
}

void EntryForm::setUsable(const char* name, bool usable) {
    auto* input = inputs_.at(name);
    input->setEnabled(usable);
    if (!usable) setBackground(*input, windowBackground());
}

void EntryForm::showHelp(const char* help) {
    lblDesc_->setText(QString::fromLatin1(help));
}

// --- notes ---

void EntryForm::updateNotes() {
    for (const auto& field : fields_)
        if (auto* input = inputs_.at(field.name); input != types_ && input != kinds_)
            line(field.name).setNote(isStored(field) ? noteOn(field) : QString());
}

QString EntryForm::noteOn(const EntryField& field) const {
    const auto& text = line(field.name);
    if (std::string_view(field.name) == "txtID")
        if (const auto id = readWholeNumber(text.bytes())) return noteOnID(*id);
    if (field.kind == EntryField::KeyLength) return noteOnLength(text.text());
    return noteOnCommas(text.text(), field.comma);
}

// Records drop what their type does not use.
bool EntryForm::isStored(const EntryField& field) const {
    return (field.kind == EntryField::Parameter ? kinds_ : inputs_.at(field.name))->isEnabled();
}

// --- keys ---

void EntryForm::answer(clsEventHandler::Event event, QWidget* vControl) {
    using Event = clsEventHandler::Event;
    if (event == Event::eSave) {
        static_cast<void>(fuse());
        updateNotes();  // the record may have another ID now
    }
    if (event == Event::eCloseForm) close();
    if (event == Event::eEnter) moveOn(vControl);
}

void EntryForm::moveOn(QWidget* from) {
    if (from) setBackground(*from, windowBackground());
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent tab(type, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
        QCoreApplication::sendEvent(focusWidget() ? focusWidget() : this, &tab);
    }
    if (auto* active = focusWidget()) setBackground(*active, highlight);
}

// --- leaving a field ---

const EntryField* EntryForm::fieldOf(const QObject* input) const {
    if (!input) return nullptr;
    const auto name = input->objectName().toStdString();
    const auto field =
        std::ranges::find(fields_, name, [](const EntryField& each) { return std::string_view(each.name); });
    return field == fields_.end() ? nullptr : &*field;
}

bool EntryForm::lacksNumber(const QObject* input) const {
    const auto* field = fieldOf(input);
    if (!field) return false;
    if (field->kind == EntryField::KeyLength) return !keyLengthIn(valueOf(field->name));
    return field->kind == EntryField::CheckedNumber && !readInteger(valueOf(field->name));
}

bool EntryForm::focusNextPrevChild(bool next) {
    if (auto* field = focusWidget(); field && lacksNumber(field)) {
        sendBack(*field);
        return true;
    }
    return QDialog::focusNextPrevChild(next);
}

void EntryForm::sendBack(QWidget& field) {
    field.setFocus();
    showMessage(this, QStringLiteral("Please enter Numeric Value"));
}

bool EntryForm::eventFilter(QObject* watched, QEvent* event) {
    const auto* field = fieldOf(watched);
    const auto isHeld = [&] { return watched != inField_ && lacksNumber(inField_); };
    switch (event->type()) {
        // The mouse moves the focus before the field that it pressed hears of it.
        case QEvent::FocusIn:
            if (!field || (static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason && isHeld())) break;
            inField_ = inputs_.at(field->name);
            if (*field->help && isMoveInForm(*event)) showHelp(field->help);
            break;
        case QEvent::FocusOut:
            if (field && field->kind == EntryField::KeyLength && isMoveInForm(*event)) composeKey();
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            if (focusWidget() == inField_ || !isHeld()) break;
            sendBack(*inField_);
            return true;
        case QEvent::ContextMenu:  // of a press that was sent back
            if (isHeld()) return true;
            break;
        default: break;
    }
    return QDialog::eventFilter(watched, event);
}

void EntryForm::refuseNumber(const char* name) {
    auto& field = line(name);
    field.setEnabled(true);  // the type may not use it, but the text in it has to be mended
    field.selectAll();
    auto* focus = focusWidget();
    sendBack(lacksNumber(focus) ? *focus : field);  // one at a time: that one could not have been left
}

// --- closing ---

void EntryForm::reject() {
    if (isChanged() && askYesNo(this, QStringLiteral("Update Confirmation"), QString::fromLatin1(question_)) &&
        !fuse())
        return;
    QDialog::reject();
}
