// SPDX-License-Identifier: MIT
// Touches a gigabyte, so that a run after this one does not pay for memory that the machine has never used.
#include <vector>

int main() {
    const std::vector<char> touched(std::size_t{1} << 30, 1);
    return touched.back() == 1 ? 0 : 1;
}
