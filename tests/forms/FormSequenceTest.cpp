// SPDX-License-Identifier: MIT
#include "Helpers.h"

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "tests/Letters.h"

// A user does anything in any order with the two forms, which must show and store what a model says.

namespace {

int below(int limit) {
    return *rc::gen::inRange(0, limit);
}

std::string anyOf(const Rows& texts) {
    return texts[static_cast<std::size_t>(below(static_cast<int>(texts.size())))];
}

/// What a form shows, and the record behind it.
struct Model {
    bool isNode;
    std::map<std::string, std::string> fields;  // texts by field; of lstType the letter
    std::set<std::string> disabled;
    std::string record;  // that the form edits
    std::string stored;

    [[nodiscard]] std::string at(const std::string& field) const { return fields.at(field); }
    [[nodiscard]] bool isUsable(const std::string& field) const { return disabled.count(field) == 0; }

    void chooseType(const std::string& letter) {
        fields["lstType"] = letter;
        if (isNode && (letter == "F" || letter == "N")) disabled.insert({"txtQuery", "lstParm", "txtnn"});
        if (isNode && (letter == "G" || letter == "R")) {
            disabled.erase("txtQuery");
            disabled.erase("lstParm");
        }
        if (!isNode && !letter.empty()) {
            disabled.insert({"txtForm", "txtCol"});
            if (letter == "H" || letter == "I") disabled.erase("txtForm");
            if (letter == "C" || letter == "S" || letter == "T") disabled.erase("txtCol");
        }
    }
    void chooseKind(int kind) {
        if (kind == 2) {
            disabled.erase("txtnn");
            compose();
        } else {
            disabled.insert("txtnn");
            fields["txtParm"] = Rows{"", "Lkey", "", "Text", "Today"}[static_cast<std::size_t>(kind)];
        }
    }
    void compose() {
        const auto& length = fields["txtnn"];
        const bool isNumber = !length.empty() && length.find_first_not_of("0123456789") == std::string::npos;
        if (isNumber) fields["txtParm"] = "CKey" + std::string(length.size() == 1 ? "0" : "") + length;
    }
    void write(const std::string& field, const std::string& text) {
        fields[field] = text;
        if (field == "txtnn") compose();
    }
    /// The row of a record that has everything as it is shown.
    [[nodiscard]] std::string shown() const {
        if (isNode)
            return at("txtID") + "|" + at("txtDescription") + "|" + at("lstType") + "|2|" + at("txtQuery") + "|" +
                   at("txtParm") + "|" + at("txtIcon") + "|" + at("txtRole");
        return at("txtID") + "|7|" + at("txtSeqNo") + "|" + at("txtTitle") + "|" + at("txtQuery") + "|" +
               at("txtParm") + "|" + at("lstType") + "|" + at("txtForm") + "|" + at("txtCol") + "|more";
    }
    /// @return whether the scheme takes it
    bool save() {
        const auto type = at("lstType");
        const bool needsQuery = !isNode || type == "G" || type == "R";
        if (needsQuery && at("txtQuery").empty()) return false;
        Model taken = *this;
        if (isNode && (type == "F" || type == "N")) taken.fields["txtQuery"] = taken.fields["txtParm"] = "";
        if (!isNode && !type.empty() && type != "H") taken.fields["txtForm"] = "0";
        if (!isNode && (type == "H" || type == "E" || type == "M" || type == "I")) taken.fields["txtCol"] = "";
        record = stored = taken.shown();
        return true;
    }
};

class Played : public Stage {
  public:
    explicit Played(bool isNode) : isNode_(isNode) {
        open(isNode ? "fNav" : "fWeb");
        model.isNode = isNode;
        model.record = model.stored = stored();
        if (isNode)
            model.fields = {
                {"txtID", "7"},  {"txtDescription", "Orders"}, {"lstType", "G"},    {"txtQuery", "spG_Orders"},
                {"txtnn", "05"}, {"txtParm", "CKey05"},        {"txtIcon", "leaf"}, {"txtRole", "3"}};
        else
            model.fields = {{"txtID", "5"},    {"txtTitle", "Orders"}, {"lstType", "H"}, {"txtQuery", "spW_Orders"},
                            {"txtnn", "05"},   {"txtParm", "CKey05"},  {"txtForm", "4"}, {"txtCol", ""},
                            {"txtSeqNo", "20"}};
        model.chooseType(isNode ? "G" : "H");
    }

    void act() {
        switch (below(8)) {
            case 0: {
                const std::string letters = isNode_ ? nodeLetters : paragraphLetters;
                const int index = below(static_cast<int>(letters.size()));
                RC_LOG() << "type " << index << '\n';
                leaveLength();
                choose("lstType", index);
                model.chooseType(letters.substr(static_cast<std::size_t>(index), 1));
                break;
            }
            case 1: {
                if (!model.isUsable("lstParm")) break;
                const int kind = below(5);
                RC_LOG() << "kind " << kind << '\n';
                leaveLength();
                choose("lstParm", kind);
                model.chooseKind(kind);
                break;
            }
            case 2: {
                RC_LOG() << "F3\n";
                const bool isTaken = model.save();
                key(Qt::Key_F3);
                RC_ASSERT(refused().empty() == isTaken);
                break;
            }
            case 3: {
                const auto step = anyStep();
                RC_LOG() << QKeySequence(step).toString().toStdString() << '\n';
                const auto before = focusName();
                key(step);
                if (before == "txtnn" && focusName() != before) model.compose();
                break;
            }
            default: {
                const auto field = anyOf(
                    isNode_ ? Rows{"txtDescription", "txtQuery", "txtnn", "txtParm", "txtIcon", "txtRole"}
                            : Rows{"txtTitle", "txtQuery", "txtnn", "txtParm", "txtForm", "txtCol", "txtSeqNo"});
                if (!model.isUsable(field)) break;
                const bool isNumber = field == "txtnn" || field == "txtForm" || field == "txtSeqNo";
                const auto written = anyOf(isNumber ? Rows{"0", "7", "12", "123"} : Rows{"", "a", "All", "q 1"});
                RC_LOG() << field << " " << written << '\n';
                if (field != "txtnn") leaveLength();
                enter(field, written);
                model.write(field, written);
            }
        }
    }

    void expectModel() const {
        for (const auto& [field, text] : model.fields) {
            if (field == "lstType")
                RC_ASSERT(chosen(field).substr(2, 1) == text);
            else
                RC_ASSERT(shown(field) == text);
            RC_ASSERT(enabled(field) == model.isUsable(field));
        }
        RC_ASSERT(enabled("lstParm") == model.isUsable("lstParm"));
        RC_ASSERT(edited() == model.record);
        RC_ASSERT(stored() == model.stored);
        RC_ASSERT(form->isVisible());
    }

    // Presses Esc, and No when the form asks. @return whether it asks
    [[nodiscard]] bool asksOnEsc() const {
        bool asks = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!question) return;
            asks = true;
            question->button(QMessageBox::No)->click();
        });
        timer.start(1);
        key(Qt::Key_Escape);
        RC_ASSERT(!form->isVisible());
        return asks;
    }

    Model model;

  private:
    // Leaving the field of the key length makes the parameter anew, even if nothing was typed there.
    void leaveLength() {
        if (focusName() == "txtnn") model.compose();
    }

    // A key that types nothing, wherever the focus is.
    static Qt::Key anyStep() {
        constexpr Qt::Key steps[] = {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Enter, Qt::Key_F1, Qt::Key_F9, Qt::Key_F12};
        return steps[below(6)];
    }

    bool isNode_;
};

void play(bool isNode) {
    Played form(isNode);
    form.expectModel();
    const int actions = below(20);
    for (int action = 0; action < actions; ++action) {
        form.act();
        form.expectModel();
    }
    const bool changed = form.model.shown() != form.model.record;
    RC_CLASSIFY(changed);
    RC_ASSERT(form.asksOnEsc() == changed);
    RC_ASSERT(form.edited() == form.model.record);
    RC_ASSERT(form.stored() == form.model.stored);
}

}  // namespace

RC_GTEST_PROP(FormSequences, OfANodeDoWhatTheFormPromises, ()) {
    play(true);
}

RC_GTEST_PROP(FormSequences, OfAParagraphDoWhatTheFormPromises, ()) {
    play(false);
}
