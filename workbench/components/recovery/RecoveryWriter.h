// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/recovery/RecoveryFolder.h"

#include <QString>

#include <memory>

namespace fennar::recovery {

/** Writes and removes copies in a folder that it makes with the first one. Any thread, one at a time. */
class RecoveryWriter
{
public:
    /** @param root  where the folder is made. */
    explicit RecoveryWriter(const QString& root) : mRoot(root) {}

    /** Returns what is wrong, or nothing; @p lost tells that copies written earlier are not there any more.
     */
    QString write(int number, const KeptDocument& document, bool& lost);
    void remove(const QString& name);
    /** Removes the folder, and the root unless others keep something in it. */
    void remove_all();

private:
    QString mRoot;
    std::unique_ptr<RecoveryFolder> mFolder;
};

} // namespace fennar::recovery
