// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "model/clsNavSchemes.h"

// Any two files go the whole way: loaded, renumbered, checked, listed, saved, loaded again. Reports repeat, checking
// changes nothing that is saved but the nodes of orphans, and what was loaded from a saved file is saved as it is.

namespace {

// The part of a report below a heading.
std::string below(const std::string& report, std::string_view heading) {
    const auto at = report.rfind(heading);
    require(at != std::string::npos, "the report has its headings");
    return report.substr(at + heading.size());
}

void requireLines(const std::string& report) {
    require(report.ends_with("\r\n"), "a report ends with the end of a line");
    for (std::size_t at = 0; (at = report.find('\n', at)) != std::string::npos; ++at)
        require(at != 0 && report[at - 1] == '\r', "lines end with CR LF");
}

void check(clsNavSchemes& navs) {
    const auto rules = navs.CheckNav();
    requireLines(rules);
    require(navs.CheckNav() == rules, "checking the nodes changes nothing");
    requireLines(navs.NavToDo());
    requireLines(navs.oWebs.WebToDo());
    const auto first = navs.oWebs.CheckScheme(navs);
    requireLines(first);
    const auto second = navs.oWebs.CheckScheme(navs);
    // (A node with the ID 0 takes the orphans in: their node became 0.)
    bool hasZero = false;
    for (const auto& node : navs.NewEnum()) hasZero = hasZero || node->ID == 0;
    if (!hasZero)
        require(below(second, "THE ORPHANS: ") == below(first, "THE ORPHANS: "), "orphans stay orphans");
}

}  // namespace

// The first byte says where the first file ends and the second one begins.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string bytes(data + 1, data + size);
    const auto split = bytes.size() * data[0] / 255;
    clsNavSchemes navs;
    load(navs, std::string_view(bytes).substr(0, split));
    load(navs.oWebs, std::string_view(bytes).substr(split));
    check(navs);
    navs.Renumber();
    check(navs);

    const auto nodes = savedBytes(navs);
    const auto paragraphs = savedBytes(navs.oWebs);
    clsNavSchemes again;
    load(again, nodes);
    load(again.oWebs, paragraphs);
    check(again);
    // (Twins, which a renumbering may make, are dropped when they are loaded: from then on nothing changes.)
    const auto settled = savedBytes(again);
    clsNavSchemes third;
    load(third, settled);
    require(third.Count() == 0 || savedBytes(third) == settled, "the nodes load as they were saved");
    again.oWebs.ClearAll();
    load(again.oWebs, paragraphs);
    require(again.oWebs.Count() == 0 || savedBytes(again.oWebs) == paragraphs,
            "the paragraphs load as they were saved");
    again.DelNode("1");
    check(again);
    return 0;
}
