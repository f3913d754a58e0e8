#include "SharedLibrary.h"

#include <dlfcn.h>

void* System::LoadSharedLibrary(const char* fileName) {
  return ::dlopen(fileName, RTLD_NOW | RTLD_LOCAL);
}

void* System::FindFunction(void* library, const char* name) {
  return ::dlsym(library, name);
}
