// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/ChoiceList.h"
#include "forms/ElidedLabel.h"
#include "forms/EntryLine.h"
#include "forms/clsEventHandler.h"

class QGridLayout;
class QLabel;
class QVBoxLayout;

/// A field of an entry form, with the label before it and the help that is shown when it gets the focus. Each form
/// has a constant for each of its fields, and its tables point to these. A table that names a field which the form
/// does not have does not compile.
struct EntryField {
    enum Kind {
        ID,             ///< a text box with the number of the record, `txtID`
        Line,           ///< a text box
        CheckedNumber,  ///< a text box that cannot be left without a number in it
        TypeList,       ///< the list of types, `lstType`
        KindList,       ///< the list of parameter kinds, `lstParm`
        KeyLength,      ///< the length of a character key, `txtnn`; a checked number
        Parameter,      ///< a text box with the parameter, `txtParm`, built from the selected kind and the length
    };
    Kind kind;
    const char* label = "";  ///< name of the label; empty for a field in the same row as the one before
    const char* caption;     ///< text of the label; without a label, what a screen reader says
    const char* name;
    const char* help = "";  ///< empty if the help does not change
    /// What a comma in the text does when the file is opened again; empty if the field needs a number.
    const char* comma = "";
};

/// A type of node or paragraph as its form offers it. The first letter of the entry is the letter of the type.
struct TypeChoice {
    const char* entry;
    std::array<const EntryField*, 3> disables = {};  ///< fields that the type disables first; null for none
    std::array<const EntryField*, 2> enables = {};   ///< fields that it then enables; disabled fields keep their text
    const char* help;

    [[nodiscard]] constexpr char letter() const { return *entry; }
};

/// The font of the forms' captions and fields.
[[nodiscard]] QFont formFont();

/// What the two entry forms share: the fields and their help, the keyboard scheme, the parameter kinds, saving, and
/// the question on closing. A form is created for one record, shown modally, and destroyed.
class EntryForm : public QDialog {
  protected:
    struct Plan {
        const char* name;
        const char* caption;
        const char* question;                       ///< asked if the form is closed with unsaved changes
        std::span<const EntryField* const> fields;  ///< in their order on the form
        std::span<const TypeChoice> types;
        QFont hintFont;
    };
    EntryForm(const Plan& plan, QWidget* parent);

    /// Call this at the end of the form's constructor. It places the form and starts to serve its keys.
    void load();

    // What a form does with its record.
    [[nodiscard]] virtual bool isChanged() const = 0;
    /// Stores the contents of the fields; if that is not possible, says why. @return whether they were stored
    virtual bool fuse() = 0;
    /// What a save loses if `typed` is the ID of another record; empty if it is not.
    [[nodiscard]] virtual QString noteOnID(std::int32_t typed) const = 0;

    [[nodiscard]] ChoiceList& listOfTypes() const { return *types_; }

    /// The text of a field as bytes of the code page; for the list of types, the letter of the selected type.
    [[nodiscard]] std::string valueOf(const EntryField& field) const;
    /// Shows these bytes in a text box. Does nothing for the parameter, which follows the selected kind, or for a
    /// list.
    void fill(const EntryField& field, std::string_view bytes);
    /// The position, from 0, of the type with this letter among all types; -1 for any other text.
    [[nodiscard]] int placeOfType(std::string_view letter) const;
    /// Fills the list of types, without those whose letter is in `left`, and the list of parameter kinds.
    void fillLists(std::string_view left = {});
    /// Selects the parameter kind that is stored as `parmIs`; does nothing for an unknown one.
    void chooseParameter(std::string_view parmIs);

    /// Says that the field needs a whole number, and moves the focus there.
    void refuseNumber(const EntryField& field);

    /// A line of text above the fields.
    ElidedLabel& addHeading(const char* name);
    /// A line of text below the key hint.
    void addFootnote(const char* name, const char* text, const QFont& font);

    void reject() override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// A field on the screen.
    struct Input {
        const EntryField* field;
        QWidget* widget;
        EntryLine* line;  ///< null for a list
    };

    void addFields(QGridLayout& grid);
    [[nodiscard]] Input makeInput(const EntryField& field);
    [[nodiscard]] ChoiceList* makeList(EntryField::Kind kind);
    [[nodiscard]] EntryLine* makeLine(EntryField::Kind kind);
    [[nodiscard]] QSize sizeOfHelp() const;

    void typeChosen();
    void kindChosen();
    void composeKey();
    void updateNotes();
    [[nodiscard]] QString noteOn(const Input& input) const;
    [[nodiscard]] bool isStored(const Input& input) const;
    void showHelp(const char* help);

    void answer(clsEventHandler::Event event, QWidget* vControl);
    void moveOn(QWidget* from);

    [[nodiscard]] const Input& inputOf(const EntryField& field) const;
    [[nodiscard]] const Input* inputOf(const QObject* widget) const;
    [[nodiscard]] bool lacksNumber(const QObject* widget) const;
    void sendBack(QWidget& field);

    const char* question_;
    std::span<const EntryField* const> fields_;
    std::span<const TypeChoice> typeChoices_;
    std::vector<Input> inputs_;  // in the order of the fields
    ChoiceList* types_ = nullptr;
    ChoiceList* kinds_ = nullptr;
    EntryLine* keyLength_ = nullptr;
    EntryLine* parameter_ = nullptr;
    QLabel* lblDesc_ = nullptr;
    QVBoxLayout* rows_ = nullptr;
    QWidget* inField_ = nullptr;  // the field that the user is in, even if the mouse has just pressed another one
    clsEventHandler oEH;
};
