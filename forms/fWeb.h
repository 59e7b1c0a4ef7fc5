// SPDX-License-Identifier: MIT
#pragma once

#include "forms/RecordForm.h"
#include "model/clsNavSchemes.h"

/// The form in which the user adds or changes a paragraph. It edits a record that is not in the scheme; F3 passes a
/// copy of it to the scheme's `FuseWeb`.
class fWeb final : public RecordForm<clsWebScheme> {
  public:
    /// @param oNavs must outlive the form
    fWeb(clsNavSchemes& oNavs, QWidget* parent);

    /// Sets the paragraph to edit and shows it.
    void setWebObject(Pointer paragraph);
    [[nodiscard]] const Pointer& WebObject() const { return record(); }

  private:
    void chooseType(std::string_view type);
    [[nodiscard]] QString noteOnID(std::int32_t typed) const override;

    const clsNavSchemes& oNavs_;
};
