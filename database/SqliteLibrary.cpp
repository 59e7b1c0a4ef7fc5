// SPDX-License-Identifier: MIT
#include "database/SqliteLibrary.h"

#include <dlfcn.h>

#include <QSqlDriver>
#include <QVariant>
#include <string_view>

namespace {

// Null where the library is not loaded.
template <class Function>
Function* function(const char* name) {
    static void* const library = dlopen("libsqlite3.so.0", RTLD_LAZY | RTLD_NOLOAD);
    return library == nullptr ? nullptr : reinterpret_cast<Function*>(dlsym(library, name));
}

}  // namespace

SqliteLibrary::SqliteLibrary(const QSqlDriver& driver) {
    const auto handle = driver.handle();
    if (handle.isValid() && std::string_view(handle.typeName()) == "sqlite3*")
        connection_ = *static_cast<void* const*>(handle.constData());
}

void SqliteLibrary::refuseCommits() const {
    auto* const setHook = function<void*(void*, int (*)(void*), void*)>("sqlite3_commit_hook");
    if (setHook != nullptr && connection_ != nullptr)
        setHook(
            connection_, [](void*) { return 1; }, nullptr);
}

void SqliteLibrary::interrupt() const {
    auto* const stop = function<void(void*)>("sqlite3_interrupt");
    if (stop != nullptr && connection_ != nullptr) stop(connection_);
}
