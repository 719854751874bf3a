// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/library_pages.h"

#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <span>

namespace {

using Segment = ElfW(Phdr);

// Where the linker has written into code, the file does not have what is in memory.
bool hasRelocatedCode(const ElfW(Dyn) * entry) {
    for (; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_TEXTREL ||
            (entry->d_tag == DT_FLAGS && (entry->d_un.d_val & DF_TEXTREL) != 0)) {
            return true;
        }
    }
    return false;
}

void dropPages(std::uintptr_t begin, std::uintptr_t end) {
    static const auto pageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const std::uintptr_t firstPage = begin / pageSize * pageSize;
    madvise(reinterpret_cast<void*>(firstPage), end - firstPage, MADV_DONTNEED);
}

int dropPagesOf(dl_phdr_info* library, std::size_t, void* countLeft) {
    if (int& left = *static_cast<int*>(countLeft); left > 0) {
        --left;
        return 0;
    }
    const std::span<const Segment> segments(library->dlpi_phdr, library->dlpi_phnum);
    for (const Segment& segment : segments) {
        if (segment.p_type == PT_DYNAMIC &&
            hasRelocatedCode(reinterpret_cast<const ElfW(Dyn)*>(library->dlpi_addr + segment.p_vaddr))) {
            return 0;
        }
    }
    for (const Segment& segment : segments) {
        if (segment.p_type == PT_LOAD && (segment.p_flags & PF_W) == 0) {
            const std::uintptr_t begin = library->dlpi_addr + segment.p_vaddr;
            dropPages(begin, begin + segment.p_memsz);
        }
    }
    return 0;
}

} // namespace

int libraryCount() {
    int count = 0;
    dl_iterate_phdr(
        [](dl_phdr_info*, std::size_t, void* number) {
            ++*static_cast<int*>(number);
            return 0;
        },
        &count);
    return count;
}

void dropLibraryPages(int count) {
    dl_iterate_phdr(dropPagesOf, &count);
}
