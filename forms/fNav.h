// SPDX-License-Identifier: MIT
#pragma once

#include "forms/RecordForm.h"
#include "model/clsNavSchemes.h"

/// The form in which the user adds or changes a node. It edits a record that is not in the scheme; F3 passes a copy
/// of it to the scheme's `FuseNav`.
class fNav final : public RecordForm<clsNavScheme> {
  public:
    /// @param oNavs must outlive the form
    fNav(clsNavSchemes& oNavs, QWidget* parent);

    /// Sets the parent of the node. Set this first: it decides which types are offered.
    void setPObject(std::shared_ptr<const clsNavScheme> parent);
    /// Sets the node to edit and shows it.
    void setNavObject(Pointer node);
    [[nodiscard]] const Pointer& NavObject() const { return record(); }

  private:
    [[nodiscard]] int indexOfType(std::string_view type) const;
    [[nodiscard]] QString noteOnID(std::int32_t typed) const override;

    const clsNavSchemes& oNavs_;
    std::shared_ptr<const clsNavScheme> PObject_;
    ElidedLabel& lblParent_;
};
