// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "forms/ChoiceList.h"
#include "forms/ElidedLabel.h"
#include "forms/EntryLine.h"
#include "forms/clsEventHandler.h"

class QGridLayout;
class QLabel;
class QVBoxLayout;

/// A field of an entry form, with the label before it and the help that is shown when it gets the focus.
struct EntryField {
    enum Kind {
        Line,           ///< a text box
        CheckedNumber,  ///< a text box that is left only with a number in it
        TypeList,       ///< the list of types, `lstType`
        KindList,       ///< the list of parameter kinds, `lstParm`
        KeyLength,      ///< the length of a character key, `txtnn`; a checked number
        Parameter,      ///< a text box with the parameter, `txtParm`, which is made of the chosen kind and the length
    };
    Kind kind;
    const char* label;    ///< name of the label; empty for a field that stands in the row of the one before
    const char* caption;  ///< text of the label; without a label what a screen reader says
    const char* name;
    const char* help;  ///< empty where the help stays as it was
    /// What a comma in the text does when the file is opened again; empty where a number is needed.
    const char* comma = "";
};

/// A type of node or paragraph as its form offers it. The letter of the type is the first one of the entry.
struct TypeChoice {
    const char* entry;
    std::array<const char*, 3> disables;  ///< fields that choosing the type makes unusable first; null is none
    std::array<const char*, 2> enables;   ///< and those that it then makes usable; disabled fields keep their text
    const char* help;

    [[nodiscard]] constexpr char letter() const { return *entry; }
};

/// The font of the forms' captions and fields.
[[nodiscard]] QFont formFont();

/// What the two entry forms share: the fields and their help, the keyboard scheme, the parameter kinds, saving, and
/// the question on closing. A form is made for one record, shown modally, and thrown away.
class EntryForm : public QDialog {
  protected:
    struct Plan {
        const char* name;
        const char* caption;
        const char* question;  ///< asked when the form is closed with changes
        std::span<const EntryField> fields;
        std::span<const TypeChoice> types;
        QFont hintFont;
    };
    EntryForm(const Plan& plan, QWidget* parent);

    /// To be called at the end of the form's constructor: places the form and starts to serve its keys.
    void load();

    // What a form does with its record.
    [[nodiscard]] virtual bool isChanged() const = 0;
    /// Stores what the fields say. Says why when it cannot. @return whether it was stored
    virtual bool fuse() = 0;
    /// What a save loses when `typed` is the ID of another record; empty when it is not.
    [[nodiscard]] virtual QString noteOnID(std::int32_t typed) const = 0;

    [[nodiscard]] EntryLine& line(const char* name) const;
    [[nodiscard]] ChoiceList& listOfTypes() const { return *types_; }

    /// The text of a field as bytes of the code page; of the list of types the letter of the chosen one.
    [[nodiscard]] std::string valueOf(const char* name) const;

    /// Whether a text box shows what the record says.
    [[nodiscard]] bool isFilled(const char* name) const;
    /// The place of the type with this letter among all types, from 0; -1 for any other text.
    [[nodiscard]] int placeOfType(std::string_view letter) const;
    /// Fills the list of types, but for those with one of these letters, and that of the parameter kinds.
    void fillLists(std::string_view left = {});
    /// Chooses the parameter kind that is stored as `parmIs`, none for an unknown one.
    void chooseParameter(std::string_view parmIs);

    /// Says that the field needs a whole number, and puts the focus there.
    void refuseNumber(const char* name);

    /// A line of text above the fields.
    ElidedLabel& addHeading(const char* name);
    /// A line of text below the key hint.
    void addFootnote(const char* name, const char* text, const QFont& font);

    void reject() override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void addFields(QGridLayout& grid);
    [[nodiscard]] QWidget* makeInput(const EntryField& field);
    [[nodiscard]] QSize sizeOfHelp() const;

    void typeChosen();
    void kindChosen();
    void composeKey();
    void updateNotes();
    [[nodiscard]] QString noteOn(const EntryField& field) const;
    [[nodiscard]] bool isStored(const EntryField& field) const;
    void setUsable(const char* name, bool usable);
    void showHelp(const char* help);

    void answer(clsEventHandler::Event event, QWidget* vControl);
    void moveOn(QWidget* from);

    [[nodiscard]] const EntryField* fieldOf(const QObject* input) const;
    [[nodiscard]] bool lacksNumber(const QObject* input) const;
    void sendBack(QWidget& field);

    const char* question_;
    std::span<const EntryField> fields_;
    std::span<const TypeChoice> typeChoices_;
    std::map<std::string_view, QWidget*> inputs_;
    ChoiceList* types_ = nullptr;
    ChoiceList* kinds_ = nullptr;
    QLabel* lblDesc_ = nullptr;
    QVBoxLayout* rows_ = nullptr;
    QWidget* inField_ = nullptr;  // the field in which the user is, although the mouse may have pressed another one
    clsEventHandler oEH;
};
