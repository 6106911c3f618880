// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

/**
 * A shared object, mapped into the program.
 *
 * It is unmapped with this object unless keep() was called.
 */
class SharedObject
{
public:
    /** Maps @p file. All its symbols must be found now: a missing one must not end the program later. */
    explicit SharedObject(const QString& file);
    ~SharedObject();
    Q_DISABLE_COPY_MOVE(SharedObject)

    bool is_open() const { return mHandle != nullptr; }
    /** Why the file could not be mapped; empty if it was. */
    QString error() const { return mError; }

    /** The address of a symbol; null if there is none. */
    void* find(const char* symbol) const;
    /** Whether @p address lies in what was mapped for the symbol at @p symbol_address. Null lies nowhere. */
    static bool same_object(const void* address, const void* symbol_address);
    /** Whether the class of @p object, which has virtual functions, is defined in what was mapped for the
     * symbol. */
    static bool has_class_of(const void* object, const void* symbol_address)
    {
        // An object begins with the address of its class's table.
        return same_object(*static_cast<const void* const*>(object), symbol_address);
    }

    /** Leaves the object mapped until the program ends. */
    void keep() { mKept = true; }

private:
    void* mHandle = nullptr;
    QString mError;
    bool mKept = false;
};
