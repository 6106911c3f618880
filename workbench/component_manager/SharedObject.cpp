// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/component_manager/SharedObject.h"

#include <QFile>

#include <dlfcn.h>

namespace {

/** Where the object begins that @p address lies in; null if it lies in none. */
const void* begin_of_object(const void* address)
{
    Dl_info info;
    return address && dladdr(address, &info) ? info.dli_fbase : nullptr;
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
