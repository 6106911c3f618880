// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/component_manager/SharedObject.h"

#include <QFile>

#include <dlfcn.h>

namespace {

/** Where the object begins that @p address lies in; null if it lies in none. */
const void* begin_of_object(const void* address)
{
    if (!address)
        return nullptr;
#ifdef DLFO_STRUCT_HAS_EH_DBASE // glibc 2.35 and later
    // dladdr() looks through all symbols of the object, of which a library like Qt's has thousands.
    dl_find_object found = {};
    return _dl_find_object(const_cast<void*>(address), &found) == 0 ? found.dlfo_map_start : nullptr;
#else
    Dl_info info;
    return dladdr(address, &info) ? info.dli_fbase : nullptr;
#endif
}

} // namespace

SharedObject::SharedObject(const QString& file)
    : mHandle(dlopen(QFile::encodeName(file).constData(), RTLD_NOW | RTLD_LOCAL))
{
    if (!mHandle)
        mError = QString::fromLocal8Bit(dlerror());
}

SharedObject::~SharedObject()
{
    if (mHandle && !mKept)
        dlclose(mHandle);
}

void* SharedObject::find(const char* symbol) const
{
    return mHandle ? dlsym(mHandle, symbol) : nullptr;
}

bool SharedObject::same_object(const void* address, const void* symbol_address)
{
    const void* begin = begin_of_object(symbol_address);
    return begin && begin_of_object(address) == begin;
}
