// SPDX-License-Identifier: MIT
#include "forms/ParameterChoices.h"

#include <algorithm>

namespace {

constexpr ParameterChoice choices[] = {
    {.kind = ParameterKind::None,
     .entry = "None: No parameter",
     .help = "Specify this, when there are NO parameter required to execute the specified Query/Stored Procedure."},
    {.kind = ParameterKind::LKey,
     .entry = "LKey: Long Integer Key",
     .help = "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a Long "
             "Integer Type. The parameter value will be sourced from the 'Key' of Treeview Node, which is clicked."},
    {.kind = ParameterKind::CKey,
     .entry = "CKeynn: Character Key of length nn",
     .help =
         "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a "
         "Fixed-Length String (Text) Type. The parameter value will be sourced from the 'Key' of Treeview Node, "
         "which is clicked. The Length of the String (Text/Character) MUST be specified. For example, if the "
         "Customer-ID is a 5-Character Text, then 'CKey05' (NOT 'Ckey5') must be specified. When 'Alfreds "
         "Futterkiste' is clicked on treeview, the value 'ALFKI' (ID for 'Alfreds Futterkiste') will be passed to "
         "this query. Please also refer 'How to Segment Time-Line' section of the Tutorial to better understand "
         "the concept."},
    {.kind = ParameterKind::Text,
     .entry = "Text: Supply Displayed Text of Treeview as parameter",
     .help = "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a String "
             "Type (Text). The parameter value will be sourced from the 'Displayed Text' of Treeview Node, which is "
             "clicked."},
    {.kind = ParameterKind::Today,
     .entry = "Today: supply today's date as parameter",
     .help =
         "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a Date Type "
         "[as String (Text)]. The parameter value will be Today's Date as String (dd-Mmm-yyyy)"},
};
static_assert(std::ranges::equal(choices, parameterKinds, {}, &ParameterChoice::kind, &StoredParameter::kind));

}  // namespace

std::span<const ParameterChoice> parameterChoices() {
    return choices;
}
