// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "database/QueryFindings.h"
#include "model/clsNavSchemes.h"
#include "preview/Page.h"

/// What `verify` finds in a scheme, in words, by the records that it is about. Remarks are left out: the pages show
/// themselves what these say.
class Findings {
  public:
    Findings() = default;
    Findings(const std::vector<QueryFinding>& found, const clsNavSchemes& navs);

    [[nodiscard]] std::size_t count() const { return count_; }
    /// {"count": how many, "nodes": those that have one, themselves or on their page}
    [[nodiscard]] std::string asJson(const clsNavSchemes& navs) const;
    /// Puts those of the node and its paragraphs into the page.
    void addTo(Page& page) const;

  private:
    using Words = std::map<std::int32_t, std::vector<std::string>>;  // by ID

    Words ofNodes_;
    Words ofParagraphs_;
    std::size_t count_ = 0;
};
