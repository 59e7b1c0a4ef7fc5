// SPDX-License-Identifier: MIT
#include "commands/Queries.h"

#include <algorithm>
#include <optional>
#include <set>
#include <unordered_map>

#include "model/Integer.h"
#include "model/NodeType.h"
#include "model/ParagraphType.h"
#include "model/ParameterKind.h"

namespace {

constexpr std::size_t anyLength = 255;  // of a text whose length is not known
constexpr std::size_t mostFields = 250;

// What a parameter kind supplies.
struct Supply {
    ParameterKind kind;
    std::string_view argument{};  // the name; empty if it supplies nothing
    ValueType type = ValueType::Integer;
    std::size_t length = 0;  // of a text
    std::string_view words;
};
constexpr Supply supplies[] = {
    {.kind = ParameterKind::None, .words = "no parameter"},
    {.kind = ParameterKind::LKey, .argument = "given_key", .words = "the key of the node, a whole number"},
    {.kind = ParameterKind::CKey,
     .argument = "given_key",
     .type = ValueType::Text,
     .length = anyLength,
     .words = "the key of the node, a text"},
    {.kind = ParameterKind::Text,
     .argument = "given_text",
     .type = ValueType::Text,
     .length = anyLength,
     .words = "the text of the node"},
    {.kind = ParameterKind::Today,
     .argument = "given_today",
     .type = ValueType::Text,
     .length = 11,
     .words = "the day as a text, like 21-Nov-2026"},
};
static_assert(std::ranges::equal(supplies, parameterKinds, {}, &Supply::kind, &StoredParameter::kind));

// Null for a text that is no kind.
const Supply* supplyOf(std::string_view parmIs) {
    const auto kind = readParameterKind(parmIs);
    const auto* const row = kind ? std::ranges::find(supplies, *kind, &Supply::kind) : std::end(supplies);
    return row == std::end(supplies) ? nullptr : row;
}

// Splits at each separator; several in a row count as one.
std::vector<std::string_view> piecesOf(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    while (!text.empty()) {
        const auto end = std::min(text.find(separator), text.size());
        if (end > 0) pieces.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return pieces;
}

std::optional<std::size_t> keyLength(std::string_view parmIs) {
    if (readParameterKind(parmIs) != ParameterKind::CKey) return {};
    const auto digits = keyLengthOf(parmIs);
    const bool isNumber =
        digits.size() == 2 && std::ranges::all_of(digits, [](char byte) { return byte >= '0' && byte <= '9'; });
    const auto length = isNumber ? readWholeNumber(digits).value_or(0) : 0;
    return length > 0 ? static_cast<std::size_t>(length) : anyLength;
}

// Makes room for another use of an argument or a field: once a text, it stays a text, and the longest length counts.
template <class Slot>
void widen(Slot& slot, ValueType type, std::size_t length) {
    if (slot.type != ValueType::Text) slot.type = type;
    slot.length = std::max(slot.length, length);
}

std::string lower(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return result;
}

// A text of a record as a comment shows it: shortened, and in quotes.
std::string told(std::string_view bytes) {
    constexpr std::size_t most = 40;
    return "\"" + shown(bytes.substr(0, most)) + (bytes.size() > most ? "...\"" : "\"");
}

// A node or paragraph that calls a query.
struct Use {
    std::string who;                           // "Node 8", "Paragraph 14 of node 8"
    const ParagraphType* paragraph = nullptr;  // null for a node, and for a type of paragraph that there is not
    bool isNode = false;
    std::string_view type, text, query, parmIs, colsAre;
    std::optional<std::size_t> idLength;  // of the keys that a node's query returns, if they are texts
};

class Draft {
  public:
    explicit Draft(std::string_view name) { query_.name = name; }

    void add(const Use& use) {
        const auto constants = constantsOf(use.query);
        query_.uses += words(use);
        addArguments(use, constants);
        if (use.isNode)
            addNode(use);
        else if (!use.paragraph || !use.paragraph->isAction)
            addParagraph(use);
    }

    [[nodiscard]] Query finished() && {
        for (std::size_t place = 0; place < query_.arguments.size(); ++place) {
            auto& argument = query_.arguments[place];
            argument.isOptional = place >= fewestArguments_;
            const auto isBefore = [&](const QueryArgument& other) { return other.name == argument.name; };
            if (std::any_of(query_.arguments.begin(), query_.arguments.begin() + std::ptrdiff_t(place), isBefore))
                argument.name += std::to_string(place + 1);
        }
        if (columns_ > 0) makeFields();
        return std::move(query_);
    }

  private:
    static std::vector<std::string_view> constantsOf(std::string_view query) {
        auto pieces = piecesOf(query, ' ');
        if (!query.starts_with(' ')) pieces.erase(pieces.begin());
        return pieces;
    }

    static std::string words(const Use& use) {
        auto line = use.who + ", type " + told(use.type) + ", " + told(use.text);
        if (!use.colsAre.empty()) line += ", columns " + told(use.colsAre);
        const auto constants = use.query.find(' ');
        line += ". Called with ";
        if (constants != std::string_view::npos)
            line += "the constant " + told(use.query.substr(constants + 1)) + " and ";
        return line + suppliedWords(use.parmIs) + ".\n";
    }

    static std::string suppliedWords(std::string_view parmIs) {
        const auto* const supply = supplyOf(parmIs);
        if (!supply) return "what " + told(parmIs) + " means; nothing reads this kind of parameter";
        std::string words(supply->words);
        if (const auto length = keyLength(parmIs); length && *length != anyLength)
            words += " of " + std::to_string(*length) + " characters";
        return words;
    }

    void addArguments(const Use& use, const std::vector<std::string_view>& constants) {
        std::size_t place = 0;
        for (const auto constant : constants) {
            const bool isNumber = readWholeNumber(constant).has_value();
            widen(argument(place++), isNumber ? ValueType::Integer : ValueType::Text,
                  isNumber ? constant.size() : anyLength);
        }
        const auto* const supply = supplyOf(use.parmIs);
        if (supply && !supply->argument.empty()) {
            auto& given = argument(place++);
            given.name = supply->argument;
            widen(given, supply->type, keyLength(use.parmIs).value_or(supply->length));
        }
        fewestArguments_ = std::min(fewestArguments_, place);
    }

    QueryArgument& argument(std::size_t place) {
        while (query_.arguments.size() <= place) query_.arguments.push_back({.name = "given_constant"});
        return query_.arguments[place];
    }

    void addNode(const Use& use) {
        columns_ = std::max<std::size_t>(columns_, 2);
        idLength_ = std::max(idLength_, use.idLength.value_or(0));
    }

    void addParagraph(const Use& use) {
        columns_ = std::max<std::size_t>(columns_, 2);
        if (!use.paragraph) return;
        if (!use.paragraph->fieldPrefix.empty()) pictures_.insert(use.paragraph);
        if (use.paragraph->columns == ColumnsUse::Axes) addChart(use.colsAre);
        if (use.paragraph->columns == ColumnsUse::Sums) addSums(use.colsAre);
    }

    // Columns are "X:Y"; with "All", each column is plotted against the first one.
    void addChart(std::string_view colsAre) {
        const auto axes = piecesOf(colsAre, ':');
        if (axes.size() != 2 || !addNumber(readWholeNumber(axes[1]))) addNumber(2);
        if (axes.size() == 2) addColumn(readWholeNumber(axes[0]));
    }

    void addSums(std::string_view colsAre) {
        if (colsAre == "All") addNumber(1);
        for (const auto column : piecesOf(colsAre, ':')) addNumber(readWholeNumber(column));
    }

    bool addColumn(std::optional<std::int32_t> column) {
        if (!column || *column < 1 || static_cast<std::size_t>(*column) >= mostFields) return false;
        columns_ = std::max(columns_, static_cast<std::size_t>(*column) + 1);
        return true;
    }

    bool addNumber(std::optional<std::int32_t> column) {
        if (!addColumn(column)) return false;
        numbers_.insert(static_cast<std::size_t>(*column));
        return true;
    }

    void makeFields() {
        query_.fields.push_back(
            {.name = "ID", .type = idLength_ > 0 ? ValueType::Text : ValueType::Integer, .length = idLength_});
        for (std::size_t place = 1; place < columns_; ++place) {
            const bool isNumber = numbers_.contains(place);
            const auto number = std::to_string(place);
            query_.fields.push_back({.name = isNumber     ? "Number" + number
                                             : place == 1 ? "Description"
                                                          : "Field" + number,
                                     .type = isNumber ? ValueType::Number : ValueType::Text,
                                     .length = anyLength});
        }
        for (const auto* type : pictures_) {
            const auto name = std::string(type->fieldPrefix) + "Picture";
            query_.fields.push_back(type->isFieldPath ? QueryField{.name = name, .length = anyLength}
                                                      : QueryField{.name = name, .type = ValueType::Image});
        }
    }

    Query query_;
    std::size_t fewestArguments_ = static_cast<std::size_t>(-1);
    std::size_t columns_ = 0;        // including the ID; 0 if no use wants rows
    std::set<std::size_t> numbers_;  // the columns that must be numbers
    std::size_t idLength_ = 0;
    std::set<const ParagraphType*> pictures_;  // the types of its uses that want a picture, in the order of the table
};

// The lengths of the text keys that queries return, as declared by the nodes and paragraphs that receive the keys.
class KeyLengths {
  public:
    explicit KeyLengths(const SavedScheme& scheme) {
        for (const auto* node : scheme.nodes()) note(own_, node->ID, keyLength(node->parmIs()));
        for (const auto* paragraph : scheme.paragraphs()) note(own_, paragraph->XST1, keyLength(paragraph->parmIs));
        for (const auto* node : scheme.nodes()) note(below_, node->parentIs, lengthIn(own_, node->ID));
    }

    // The rows of a generating node become its children; those of a recurring one become nodes like itself.
    [[nodiscard]] std::optional<std::size_t> givenBy(const clsNavScheme& node) const {
        const auto below = lengthIn(below_, node.ID);
        const auto* const type = nodeType(node.typeIs().letter());
        return type && type->repeatsItself ? std::max(below, lengthIn(own_, node.ID)) : below;
    }

  private:
    using Lengths = std::unordered_map<std::int32_t, std::size_t>;

    static void note(Lengths& lengths, std::int32_t id, std::optional<std::size_t> length) {
        if (length) lengths[id] = std::max(lengths[id], *length);
    }
    static std::optional<std::size_t> lengthIn(const Lengths& lengths, std::int32_t id) {
        const auto place = lengths.find(id);
        return place == lengths.end() ? std::nullopt : std::optional(place->second);
    }

    Lengths own_;    // by node: of the key with which its query and its paragraphs are called
    Lengths below_;  // by node: of the keys of the nodes below it
};

class Collector {
  public:
    void add(const Use& use) {
        if (use.query.empty()) return;
        const auto name = use.query.substr(0, use.query.find(' '));
        const auto [place, isNew] = places_.try_emplace(lower(name), drafts_.size());
        if (isNew) drafts_.emplace_back(name);
        drafts_[place->second].add(use);
    }

    [[nodiscard]] std::vector<Query> finished() && {
        std::vector<Query> queries;
        queries.reserve(drafts_.size());
        for (auto& draft : drafts_) queries.push_back(std::move(draft).finished());
        return queries;
    }

  private:
    std::unordered_map<std::string, std::size_t> places_;  // in drafts_, by name
    std::vector<Draft> drafts_;
};

}  // namespace

std::vector<Query> queriesOf(const SavedScheme& scheme) {
    Collector collector;
    const KeyLengths lengths(scheme);
    for (const auto* node : scheme.nodes())
        if (callsQuery(node->typeIs().letter()))
            collector.add({.who = "Node " + keyText(node->ID),
                           .isNode = true,
                           .type = node->typeIs(),
                           .text = node->descriptionIs,
                           .query = node->queryIs(),
                           .parmIs = node->parmIs(),
                           .colsAre = {},
                           .idLength = lengths.givenBy(*node)});
    for (const auto* paragraph : scheme.paragraphs())
        collector.add({.who = "Paragraph " + keyText(paragraph->ID) + " of node " + keyText(paragraph->XST1),
                       .paragraph = paragraphType(paragraph->typeIs.letter()),
                       .type = paragraph->typeIs,
                       .text = paragraph->titleIs,
                       .query = paragraph->queryIs,
                       .parmIs = paragraph->parmIs,
                       .colsAre = paragraph->colsAre,
                       .idLength = {}});
    return std::move(collector).finished();
}
