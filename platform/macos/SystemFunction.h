#pragma once

#include <dlfcn.h>

// A function that newer versions of the system declare no more, or deprecate, but older ones need; null where
// it is gone.
template <class Function>
Function* systemFunction(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}
