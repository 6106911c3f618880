// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/recovery/RecoveryFolder.h"

#include <QMessageBox>
#include <QPushButton>

#include <memory>
#include <vector>

namespace fennar::recovery {

/**
 * The box that offers what programs that ended unexpectedly have kept.
 *
 * It is not modal: the user may work on, and a journal that plays is not held up. To close it without a
 * button keeps the documents for later. It does nothing by itself; answered() tells what the user wants.
 */
class RecoveryOffer : public QMessageBox
{
    Q_OBJECT

public:
    enum class Answer { Restore, Later, Discard };
    Q_ENUM(Answer)

    /** A document of the offer. */
    struct Entry
    {
        RecoveryFolder* folder;
        /** In the folder. */
        QString name;
    };

    /** @param folders  what is offered, in the order of the last changes; the box holds the claim on them. */
    RecoveryOffer(QWidget* parent, std::vector<std::unique_ptr<RecoveryFolder>> folders);

    /** All documents on offer, those changed last at the end. */
    const std::vector<Entry>& entries() const { return mEntries; }
    /** Removes the folders that have become empty, and gives all up: nothing is on offer any more. */
    void give_up();

signals:
    void answered(fennar::recovery::RecoveryOffer::Answer answer);

private:
    void tell_answer();

    std::vector<std::unique_ptr<RecoveryFolder>> mFolders;
    std::vector<Entry> mEntries;
    QPushButton* mRestore;
    QPushButton* mDiscard;
};

} // namespace fennar::recovery
