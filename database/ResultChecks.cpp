// SPDX-License-Identifier: MIT
#include "database/ResultChecks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>

#include "database/PictureBytes.h"
#include "model/Integer.h"

namespace fs = std::filesystem;

namespace {

std::string lower(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return result;
}

std::string inQuotes(std::string_view text) {
    constexpr std::size_t most = 60;
    return "\"" + std::string(text.substr(0, most)) + (text.size() > most ? "...\"" : "\"");
}

// A text that reads as a number is summed like one.
bool isNumber(const Cell& cell) {
    if (cell.kind == Cell::Kind::Number) return true;
    double number = 0;
    const auto* const end = cell.text.data() + cell.text.size();
    return cell.kind == Cell::Kind::Text && std::from_chars(cell.text.data(), end, number).ptr == end &&
           !cell.text.empty();
}

class PageChecks {
  public:
    PageChecks(const ParagraphType* type, std::string_view colsAre, const QueryResult& result)
        : type_(type), colsAre_(colsAre), result_(result) {}

    void checkFirstField() {
        if (result_.fields.empty())
            add("first-field", "queryIs", "The query returns no fields.");
        else if (lower(result_.fields[0]) != "id")
            add("first-field", "queryIs", "The first field is " + inQuotes(result_.fields[0]) + ", not ID.");
    }

    // "X:Y", or "All": each column from number 2 on over column 1.
    void checkChart() {
        if (colsAre_ == "All") return checkAll(2);
        const auto axes = columns();
        if (!axes) return;
        if (axes->size() != 2) return add("columns", "colsAre", "The columns of a chart are X:Y or All.");
        if (exists((*axes)[0]) && exists((*axes)[1])) checkNumbers((*axes)[1]);
    }

    void checkSums() {
        if (colsAre_ == "All") return checkAll(1);
        const auto summed = columns();
        if (!summed) return;
        for (const auto column : *summed)
            if (exists(column)) checkNumbers(column);
    }

    void checkImage() {
        const auto column = pictureField(*type_, result_);
        if (!column) return addNoField("image-field");
        for (const auto& row : result_.rows) {
            const auto& cell = row[*column];
            if (cell.kind == Cell::Kind::Null || !pictureType(cell.text).empty()) continue;
            return add(
                "image", "queryIs",
                "The field " + result_.fields[*column] + " does not hold a picture, for ID " + row[0].text + ".");
        }
    }

    void checkFiles() {
        const auto column = pictureField(*type_, result_);
        if (!column) return addNoField("file-field");
        bool isElsewhere = false;
        for (const auto& row : result_.rows)
            if (row[*column].kind != Cell::Kind::Null && !checkFile(row[*column].text, isElsewhere)) return;
    }

    std::vector<ResultFlaw> flaws;

  private:
    void add(std::string_view id, std::string_view field, std::string words) {
        flaws.push_back({id, field, std::move(words)});
    }

    // Without columns there is nothing to check; the analysis says where that is a mistake.
    std::optional<std::vector<std::size_t>> columns() {
        std::vector<std::size_t> numbers;
        if (colsAre_.find_first_not_of(' ') == std::string_view::npos) return {};
        for (std::string_view left = colsAre_; !left.empty();) {
            const auto end = std::min(left.find(':'), left.size());
            const auto number = readWholeNumber(left.substr(0, end));
            if (!number || *number < 0) {
                add("columns", "colsAre", "The columns are numbers with colons between them, or All.");
                return {};
            }
            numbers.push_back(static_cast<std::size_t>(*number));
            left.remove_prefix(std::min(end + 1, left.size()));
        }
        return numbers;
    }

    bool exists(std::size_t column) {
        if (column < result_.fields.size()) return true;
        add("column-missing", "colsAre",
            "There is no column " + std::to_string(column) + "; the last one is " +
                std::to_string(result_.fields.size() - 1) + ", " + inQuotes(result_.fields.back()) + ".");
        return false;
    }

    void checkNumbers(std::size_t column) {
        for (const auto& row : result_.rows)
            if (row[column].kind != Cell::Kind::Null && !isNumber(row[column]))
                return add("column-text", "colsAre",
                           "Column " + std::to_string(column) + ", " + inQuotes(result_.fields[column]) +
                               ", holds no numbers but " + inQuotes(row[column].text) + ".");
    }

    void checkAll(std::size_t first) {
        if (result_.fields.size() <= first)
            return add("nothing-to-sum", "colsAre",
                       "All means the columns from number " + std::to_string(first) + " on, and there are none.");
        for (auto column = first; column < result_.fields.size(); ++column) checkNumbers(column);
    }

    void addNoField(std::string_view id) {
        add(id, "queryIs",
            "No field of the query has a name that begins with " + std::string(type_->fieldPrefix) + ".");
    }

    // Returns whether the next one is worth a look.
    bool checkFile(const std::string& path, bool& isElsewhere) {
        const auto why = whyNoPicture(path, isElsewhere);
        if (!why.empty()) add("file", "queryIs", inQuotes(path) + " " + why + ".");
        return why.empty();
    }

    std::string whyNoPicture(const std::string& path, bool& isElsewhere) {
        const fs::path file(path);
        if (!file.is_absolute() && path.find(":\\") != 1 && !path.starts_with("\\\\")) return "is no full path";
        std::error_code none;
        if (path.find('\0') != std::string::npos) return "is no path";
        if (!file.is_absolute() || !fs::is_directory(file.parent_path(), none)) {
            if (!isElsewhere) add("folder-elsewhere", "queryIs", noteOn(file));
            isElsewhere = true;
            return {};
        }
        if (!fs::is_regular_file(file, none)) return "is not there";
        std::array<char, pictureHead> head{};
        std::ifstream in(file, std::ios::binary);
        in.read(head.data(), static_cast<std::streamsize>(head.size()));
        const std::string_view bytes(head.data(), static_cast<std::size_t>(in.gcount()));
        return pictureType(bytes).empty() ? "is no picture" : "";
    }

    static std::string noteOn(const fs::path& file) {
        const auto folder = file.is_absolute() ? file.parent_path().string() : file.string();
        return "The folder " + inQuotes(folder) + " is not on this computer, so its pictures were not looked at.";
    }

    const ParagraphType* type_;  // null for what is none
    std::string_view colsAre_;
    const QueryResult& result_;
};

struct TypeCheck {
    char letter;
    void (PageChecks::*check)();  // what more there is to check than the first field
};
constexpr TypeCheck typeChecks[] = {
    {'C', &PageChecks::checkChart},
    {'H', nullptr},
    {'E', nullptr},
    {'M', nullptr},
    {'I', &PageChecks::checkImage},
    {'S', &PageChecks::checkSums},
    {'T', &PageChecks::checkFiles},
};
static_assert(std::ranges::equal(typeChecks, paragraphTypes, {}, &TypeCheck::letter, &ParagraphType::letter));

// Characters of UTF-8.
std::size_t lengthOf(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

}  // namespace

std::optional<std::size_t> pictureField(const ParagraphType& type, const QueryResult& result) {
    if (type.fieldPrefix.empty()) return {};
    const auto prefix = lower(type.fieldPrefix);
    const auto found =
        std::ranges::find_if(result.fields, [&](const std::string& name) { return lower(name).starts_with(prefix); });
    if (found == result.fields.end()) return {};
    return static_cast<std::size_t>(found - result.fields.begin());
}

std::vector<ResultFlaw> flawsOfPage(char type, std::string_view colsAre, const QueryResult& result) {
    PageChecks checks(paragraphType(type), colsAre, result);
    checks.checkFirstField();
    const auto* const row = std::ranges::find(typeChecks, type, &TypeCheck::letter);
    if (row != std::end(typeChecks) && row->check && !result.fields.empty()) (checks.*row->check)();
    return std::move(checks.flaws);
}

std::vector<ResultFlaw> flawsOfTree(const std::vector<std::string>& fields) {
    QueryResult result;
    result.fields = fields;
    PageChecks checks(nullptr, {}, result);
    checks.checkFirstField();
    if (fields.size() != 2)
        checks.flaws.push_back({"two-fields", "queryIs",
                                "The query has " + std::to_string(fields.size()) +
                                    (fields.size() == 1 ? " field" : " fields") + ", not the ID and a text."});
    return std::move(checks.flaws);
}

std::string whyNoKey(std::string_view key, std::string_view parmIs) {
    const auto kind = readParameterKind(parmIs);
    if (kind == ParameterKind::LKey && !readKey(key)) return "is no whole number of 32 bits";
    const auto length = readWholeNumber(keyLengthOf(parmIs)).value_or(0);
    if (kind == ParameterKind::CKey && length > 0 && lengthOf(key) != static_cast<std::size_t>(length))
        return "has " + std::to_string(lengthOf(key)) + " characters, not " + std::to_string(length);
    return {};
}
