// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "forms/EntryForm.h"
#include "model/Integer.h"
#include "model/Text.h"

/// Which member of a record a field shows, as text, and how the text gets back into it.
template <class Record>
struct EntryMember {
    const EntryField* field;
    std::string (*read)(const Record&);
    /// @return false if the member needs a whole number and the text is not one
    bool (*write)(Record&, const std::string&);
};

/// A member that is a text.
template <class Record, Text Record::*member>
constexpr EntryMember<Record> textMember(const EntryField& field) {
    return {&field, [](const Record& record) { return std::string((record.*member).view()); },
            [](Record& record, const std::string& text) {
                record.*member = text;
                return true;
            }};
}

/// A member that is a text with a rule: the record's functions read and set it.
template <class Record, const Text& (Record::*get)() const, void (Record::*set)(Text)>
constexpr EntryMember<Record> propertyMember(const EntryField& field) {
    return {&field, [](const Record& record) { return std::string((record.*get)().view()); },
            [](Record& record, const std::string& text) {
                (record.*set)(text);
                return true;
            }};
}

/// A member that is a number.
template <class Record, std::int32_t Record::*member>
constexpr EntryMember<Record> numberMember(const EntryField& field) {
    return {&field, [](const Record& record) { return keyText(record.*member); },
            [](Record& record, const std::string& text) {
                const auto number = readWholeNumber(text);
                if (number) record.*member = *number;
                return number.has_value();
            }};
}

/// Whether a form has all the fields that its tables name. Each form asserts this.
/// @param members a list of `EntryMember`
constexpr bool hasAllFields(std::span<const EntryField* const> form, std::span<const TypeChoice> types,
                            const auto& members) {
    const auto has = [form](const EntryField* field) {
        return !field || std::ranges::find(form, field) != form.end();
    };
    return std::ranges::all_of(types,
                               [has](const TypeChoice& type) {
                                   return std::ranges::all_of(type.disables, has) &&
                                          std::ranges::all_of(type.enables, has);
                               }) &&
           std::ranges::all_of(members, [has](const auto& member) { return has(member.field); });
}

/// An entry form for a kind of record. A table says which field shows which member of the record.
template <class Record>
class RecordForm : public EntryForm {
  public:
    using Pointer = std::shared_ptr<Record>;

  protected:
    using Member = EntryMember<Record>;
    using Fuse = std::function<bool(const Pointer&)>;

    /// @param members in the order in which they are written
    /// @param fuse passes a record to its scheme, which may refuse it
    RecordForm(const Plan& plan, std::span<const Member> members, Fuse fuse, QWidget* parent)
        : EntryForm(plan, parent), members_(members), fuse_(std::move(fuse)) {}

    [[nodiscard]] const Pointer& record() const { return record_; }
    void setRecord(Pointer record) { record_ = std::move(record); }

    /// Shows the record in the text boxes.
    void fillFields() {
        for (const auto& member : members_) fill(*member.field, member.read(*record_));
    }

    [[nodiscard]] bool isChanged() const override {
        if (!record_) return false;
        return std::ranges::any_of(
            members_, [&](const Member& member) { return member.read(*record_) != valueOf(*member.field); });
    }

    // The record itself changes only after the scheme has accepted the copy: a refused change must not look saved.
    bool fuse() override {
        if (!record_) return false;
        auto edited = std::make_shared<Record>(*record_);
        for (const auto& member : members_) {
            if (member.write(*edited, valueOf(*member.field))) continue;
            refuseNumber(*member.field);
            return false;
        }
        if (!fuse_(edited)) return false;
        *record_ = *edited;
        return true;
    }

  private:
    std::span<const Member> members_;
    Fuse fuse_;
    Pointer record_;
};
