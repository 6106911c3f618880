// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/recovery/RecoveryWriter.h"

#include <QCoreApplication>
#include <QDir>

namespace fennar::recovery {

QString RecoveryWriter::write(int number, const KeptDocument& document, bool& lost)
{
    lost = mFolder && !mFolder->exists();
    if (!mFolder || lost)
        mFolder = RecoveryFolder::make(mRoot);
    if (!mFolder)
        return QCoreApplication::translate("RecoveryWriter", "no folder can be made in \"%1\"")
            .arg(QDir::toNativeSeparators(mRoot));
    return mFolder->write(number, document);
}

void RecoveryWriter::remove(const QString& name)
{
    if (mFolder)
        mFolder->remove(name);
}

void RecoveryWriter::remove_all()
{
    if (mFolder)
        mFolder->remove_all();
    mFolder.reset();
    QDir().rmdir(mRoot);
}

} // namespace fennar::recovery
