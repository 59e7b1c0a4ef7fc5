// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include "Helpers.h"

// What the tests of faulty files and disks share. Linux only.

/// Ends the test program instead of waiting for ever.
class Deadline {
  public:
    Deadline() { alarm(20); }
    ~Deadline() { alarm(0); }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;
};

/// Acts as a user whom permissions bind, where the tests run as the superuser.
class OrdinaryUser {
  public:
    OrdinaryUser() { bound_ = geteuid() != 0 || seteuid(65534) == 0; }
    ~OrdinaryUser() { EXPECT_EQ(seteuid(getuid()), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    [[nodiscard]] bool bound() const { return bound_; }

  private:
    bool bound_ = false;
};
