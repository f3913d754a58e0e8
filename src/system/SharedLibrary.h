#pragma once

namespace System {

/// Loads a shared library by its file name from the system's folders, and keeps it until the program's end. Null where
/// there is none that can be loaded.
void* LoadSharedLibrary(const char* fileName);
/// The address of a function of a loaded library; null where it has none of that name.
void* FindFunction(void* library, const char* name);

}  // namespace System
