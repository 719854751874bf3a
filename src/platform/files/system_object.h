// What CloseHandle closes: files, processes and threads, all in
// one table. Called by the files and the processes of the
// platform. Window and drawing handles have tables of their own.
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

// Never destroyed: what is still open at the end of the program ends with it, without a word to the display.
inline HandleTable<SystemObject>& systemObjects() {
    static auto* const table = new HandleTable<SystemObject>(14);
    return *table;
}

inline HANDLE insertSystemObject(std::unique_ptr<SystemObject> object) {
    return reinterpret_cast<HANDLE>(systemObjects().insert(std::move(object)));
}

// The object of this type, or null when the handle is none of it.
template <typename Object> Object* findSystemObject(HANDLE handle) {
    return dynamic_cast<Object*>(systemObjects().find(reinterpret_cast<std::uintptr_t>(handle)));
}
