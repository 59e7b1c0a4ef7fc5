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
#include "views/Look.h"
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

// In every state of the field: a disabled one has the same background.
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

void disable(QWidget& field) {
    field.setEnabled(false);
    setBackground(field, windowBackground());
}

// The focus moves inside the form, as opposed to coming back from another window or a menu.
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
    return arial(fontPoints, QFont::Bold);
}

EntryForm::EntryForm(const Plan& plan, QWidget* parent)
    : QDialog(parent), question_(plan.question), fields_(plan.fields), typeChoices_(plan.types) {
    setObjectName(QString::fromLatin1(plan.name));
    setWindowTitle(QString::fromLatin1(plan.caption));
    setFont(formFont());

    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    addFields(*grid);
    fillLists();  // so that they can be measured
    types_->fit(types_->count());
    kinds_->fit(kinds_->count());
    disable(*keyLength_);  // until a character key is selected: an empty one could not be left
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
    QHBoxLayout* shared = nullptr;  // a row with fields that have no label of their own
    for (const auto* field : fields_) {
        auto* input = inputs_.emplace_back(makeInput(*field)).widget;
        const int row = grid.rowCount();
        if (*field->label) {
            shared = nullptr;
            auto* label = makeLabel(field->label, field->caption, this);
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
            input->setAccessibleName(QString::fromLatin1(field->caption));
        }
    }
}

EntryForm::Input EntryForm::makeInput(const EntryField& field) {
    const bool isList = field.kind == EntryField::TypeList || field.kind == EntryField::KindList;
    auto* line = isList ? nullptr : makeLine(field.kind);
    auto* input = isList ? static_cast<QWidget*>(makeList(field.kind)) : line;
    input->setObjectName(QString::fromLatin1(field.name));
    input->setAccessibleDescription(QString::fromLatin1(field.help));
    input->setWhatsThis(QString::fromLatin1(field.help));
    input->installEventFilter(this);
    return {&field, input, line};
}

ChoiceList* EntryForm::makeList(EntryField::Kind kind) {
    auto* list = new ChoiceList(this);
    list->viewport()->installEventFilter(this);
    if (kind == EntryField::TypeList) {
        types_ = list;
        list->Click = [this] { typeChosen(); };
    } else {
        kinds_ = list;
        list->Click = [this] { kindChosen(); };
    }
    return list;
}

EntryLine* EntryForm::makeLine(EntryField::Kind kind) {
    auto* line = new EntryLine(this);
    if (kind == EntryField::Parameter) parameter_ = line;
    if (kind == EntryField::KeyLength) {
        keyLength_ = line;
        line->setFixedWidth(toPixels(keyLengthWidth, logicalDpiX()));
        connect(line, &QLineEdit::textChanged, this, &EntryForm::composeKey);
    }
    connect(line, &QLineEdit::textChanged, this, &EntryForm::updateNotes);
    return line;
}

// Large enough for the longest help, so that no choice changes the size of the form.
QSize EntryForm::sizeOfHelp() const {
    const int width = toPixels(helpWidth, logicalDpiX());
    int height = 0;
    const auto makeRoomFor = [&](const char* help) {
        const auto room = lblDesc_->fontMetrics().boundingRect(0, 0, width, QWIDGETSIZE_MAX, Qt::TextWordWrap,
                                                               QString::fromLatin1(help));
        height = std::max(height, room.height());
    };
    for (const auto* field : fields_) makeRoomFor(field->help);
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
    // The layout's own minimum ignores captions that wrap, and adjustSize() takes at most two thirds of the screen.
    setMinimumSize(sizeHint());
    resize(minimumSize());
    inputs_.front().widget->setFocus();
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

std::string EntryForm::valueOf(const EntryField& field) const {
    const auto* line = inputOf(field).line;
    return line ? line->bytes() : encode(types_->chosen().left(1));
}

void EntryForm::fill(const EntryField& field, std::string_view bytes) {
    if (auto* line = inputOf(field).line; line && line != parameter_) line->setBytes(bytes);
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
    if (kind == ParameterKind::CKey) keyLength_->setBytes(keyLengthOf(parmIs));
}

void EntryForm::typeChosen() {
    const auto entry = types_->chosen();
    for (const auto& type : typeChoices_) {
        if (entry != QLatin1String(type.entry)) continue;
        for (const auto* field : type.disables)
            if (field) disable(*inputOf(*field).widget);
        for (const auto* field : type.enables)
            if (field) inputOf(*field).widget->setEnabled(true);
        showHelp(type.help);
    }
    updateNotes();
}

void EntryForm::kindChosen() {
    const auto place = static_cast<std::size_t>(kinds_->ListIndex());
    const auto& kind = parameterChoices()[place];
    disable(*keyLength_);
    if (kind.kind == ParameterKind::CKey) {
        keyLength_->setEnabled(true);
        setBackground(*keyLength_, tooltipBackground());
        composeKey();
    } else {
        parameter_->setBytes(parameterKinds[place].stored);
    }
    showHelp(kind.help);
    updateNotes();
}

// If txtnn is not a number, txtParm does not change.
void EntryForm::composeKey() {
    if (const auto length = keyLengthIn(keyLength_->bytes())) parameter_->setBytes("CKey" + *length);
}

void EntryForm::showHelp(const char* help) {
    lblDesc_->setText(QString::fromLatin1(help));
}

// --- notes ---

void EntryForm::updateNotes() {
    for (const auto& input : inputs_)
        if (input.line) input.line->setNote(isStored(input) ? noteOn(input) : QString());
}

QString EntryForm::noteOn(const Input& input) const {
    const auto kind = input.field->kind;
    if (kind == EntryField::ID)
        if (const auto id = readWholeNumber(input.line->bytes())) return noteOnID(*id);
    if (kind == EntryField::KeyLength) return noteOnLength(input.line->text());
    return noteOnCommas(input.line->text(), input.field->comma);
}

// A record drops what its type does not use.
bool EntryForm::isStored(const Input& input) const {
    return (input.line == parameter_ ? kinds_ : input.widget)->isEnabled();
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

const EntryForm::Input& EntryForm::inputOf(const EntryField& field) const {
    return *std::ranges::find(inputs_, &field, &Input::field);
}

const EntryForm::Input* EntryForm::inputOf(const QObject* widget) const {
    const auto found = std::ranges::find(inputs_, widget, &Input::widget);
    return found == inputs_.end() ? nullptr : &*found;
}

bool EntryForm::lacksNumber(const QObject* widget) const {
    const auto* input = inputOf(widget);
    if (!input) return false;
    if (input->line == keyLength_) return !keyLengthIn(keyLength_->bytes());
    return input->field->kind == EntryField::CheckedNumber && !readInteger(input->line->bytes());
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
    const auto isHeld = [&] { return watched != inField_ && lacksNumber(inField_); };
    switch (event->type()) {
        // A mouse press moves the focus before the pressed field receives the press.
        case QEvent::FocusIn: {
            const auto* input = inputOf(watched);
            if (!input || (static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason && isHeld())) break;
            inField_ = input->widget;
            if (*input->field->help && isMoveInForm(*event)) showHelp(input->field->help);
            break;
        }
        case QEvent::FocusOut:
            if (watched == keyLength_ && isMoveInForm(*event)) composeKey();
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            if (focusWidget() == inField_ || !isHeld()) break;
            sendBack(*inField_);
            return true;
        case QEvent::ContextMenu:  // from a press that was sent back
            if (isHeld()) return true;
            break;
        default: break;
    }
    return QDialog::eventFilter(watched, event);
}

void EntryForm::refuseNumber(const EntryField& field) {
    const auto& refused = inputOf(field);
    refused.widget->setEnabled(true);  // even if the type does not use it: the user must fix the text in it
    if (refused.line) refused.line->selectAll();
    auto* focus = focusWidget();
    sendBack(lacksNumber(focus) ? *focus : *refused.widget);  // the user could not leave that field anyway
}

// --- closing ---

void EntryForm::reject() {
    if (isChanged() && askYesNo(this, QStringLiteral("Update Confirmation"), QString::fromLatin1(question_)) &&
        !fuse())
        return;
    QDialog::reject();
}
