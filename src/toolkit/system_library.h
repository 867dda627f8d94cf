// Functions of libraries that are loaded when they are needed.
#pragma once

namespace tallymere {

/// A function of a library in the system's folder, whatever else has the same name elsewhere. If
/// the linker imported it, a library beside the program could come first. The library stays loaded.
/// Returns null if the system lacks the library or the function.
void* FindInSystemLibrary(const wchar_t* fileName, const char* function);

}  // namespace tallymere
