// SPDX-License-Identifier: MIT
#include "forms/ParameterChoices.h"

#include <algorithm>

namespace {

constexpr ParameterChoice choices[] = {
    {ParameterKind::None, "None: No parameter",
     "Specify this, when there are NO parameter required to execute the specified Query/Stored Procedure."},
    {ParameterKind::LKey, "LKey: Long Integer Key",
     "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a Long "
     "Integer Type. The parameter value will be sourced from the 'Key' of Treeview Node, which is clicked."},
    {ParameterKind::CKey, "CKeynn: Character Key of length nn",
     "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a "
     "Fixed-Length String (Text) Type. The parameter value will be sourced from the 'Key' of Treeview Node, "
     "which is clicked. The Length of the String (Text/Character) MUST be specified. For example, if the "
     "Customer-ID is a 5-Character Text, then 'CKey05' (NOT 'Ckey5') must be specified. When 'Alfreds "
     "Futterkiste' is clicked on treeview, the value 'ALFKI' (ID for 'Alfreds Futterkiste') will be passed to "
     "this query. Please also refer 'How to Segment Time-Line' section of the Tutorial to better understand "
     "the concept."},
    {ParameterKind::Text, "Text: Supply Displayed Text of Treeview as parameter",
     "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a String "
     "Type (Text). The parameter value will be sourced from the 'Displayed Text' of Treeview Node, which is "
     "clicked."},
    {ParameterKind::Today, "Today: supply today's date as parameter",
     "Specify this, when the parameter required to execute the specified Query/Stored Procedure is a Date Type "
     "[as String (Text)]. The parameter value will be Today's Date as String (dd-Mmm-yyyy)"},
};
static_assert(std::ranges::equal(choices, parameterKinds, {}, &ParameterChoice::kind, &StoredParameter::kind));

}  // namespace

std::span<const ParameterChoice> parameterChoices() {
    return choices;
}
