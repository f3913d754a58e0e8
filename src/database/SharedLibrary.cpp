#include "SharedLibrary.h"

#include <dlfcn.h>

void* LoadSharedLibrary(const char* fileName) {
  return ::dlopen(fileName, RTLD_NOW | RTLD_LOCAL);
}

void* FindFunction(void* library, const char* name) {
  return ::dlsym(library, name);
}
