// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

/// While it exists, a test that runs as root acts as an ordinary user, to whom permissions apply. Linux only.
class OrdinaryUser {
  public:
    OrdinaryUser() : wasRoot_(geteuid() == 0) {
        if (wasRoot_) bound_ = setresuid(nobody, nobody, 0) == 0;
    }
    ~OrdinaryUser() {
        if (wasRoot_ && bound_) bound_ = setresuid(0, 0, 0) == 0;
        EXPECT_EQ(geteuid() == 0, wasRoot_);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    [[nodiscard]] bool bound() const { return bound_; }

    static constexpr uid_t nobody = 65534;

  private:
    bool wasRoot_;
    bool bound_ = true;
};
