// Counts what a process holds to draw with.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "toolkit/win32.h"

#include <winternl.h>

namespace tallymere::testing_support {

/// How many objects to draw with a process holds: fonts, bitmaps (those of icons too), brushes and
/// so on; -1 if that is not to be had. The handle of the process lets its memory be read.
inline int64_t CountGdiObjects(HANDLE process) {
    const DWORD told = GetGuiResources(process, GR_GDIOBJECTS);
    if (told != 0) {
        return told;
    }
    // Wine tells 0. There each process has a table of its own, whose address is in its PEB.
    struct Entry {
        void* object;
        ULONG owner;
        USHORT unique;
        BYTE type;
        BYTE flags;
        void* user;
    };
    constexpr size_t TableInPeb = 0xF8;
    PROCESS_BASIC_INFORMATION basic = {};
    NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr);
    void* table = nullptr;
    ReadProcessMemory(process, reinterpret_cast<std::byte*>(basic.PebBaseAddress) + TableInPeb,
                      &table, sizeof table, nullptr);
    std::vector<Entry> entries(1 << 16);
    if (!ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(Entry),
                           nullptr)) {
        return -1;
    }
    return std::count_if(entries.begin(), entries.end(),
                         [](const Entry& entry) { return entry.type != 0; });
}

}  // namespace tallymere::testing_support
