// SPDX-License-Identifier: GPL-3.0-or-later
// The table of objects that CloseHandle closes: files, processes and threads. Called by the files and
// processes of the platform. Window and drawing handles have separate tables.
#pragma once

#include "platform/base/handle_table.h"
#include "platform/files/file_io.h"
#include "platform/types.h"

struct SystemObject {
    virtual ~SystemObject() = default;
};

struct OpenFile : SystemObject {
    FileDescriptor descriptor;
};

// Never destroyed: objects still open when the program ends are released by the system, without the calls to
// the display that closing them would make.
inline HandleTable<SystemObject>& systemObjects() {
    static auto* const table = new HandleTable<SystemObject>(14);
    return *table;
}

inline HANDLE insertSystemObject(std::unique_ptr<SystemObject> object) {
    return reinterpret_cast<HANDLE>(systemObjects().insert(std::move(object)));
}

// Returns the object, or null when the handle does not name an object of this type.
template <typename Object> Object* findSystemObject(HANDLE handle) {
    return dynamic_cast<Object*>(systemObjects().find(reinterpret_cast<std::uintptr_t>(handle)));
}
