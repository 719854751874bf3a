// SPDX-License-Identifier: GPL-3.0-or-later
// An environment variable for the start of the display only. Not while other threads read the environment.
#pragma once

#include <cstdlib>

// Sets an environment variable that has no value, until the end of its scope, so that no child inherits it.
class TemporaryVariable {
public:
    TemporaryVariable(const char* name, const char* value) : name_(std::getenv(name) ? nullptr : name) {
        if (name_) {
            setenv(name_, value, 1);
        }
    }
    ~TemporaryVariable() {
        if (name_) {
            unsetenv(name_);
        }
    }
    TemporaryVariable(const TemporaryVariable&) = delete;
    TemporaryVariable& operator=(const TemporaryVariable&) = delete;

private:
    const char* name_; // null when the variable had a value
};
