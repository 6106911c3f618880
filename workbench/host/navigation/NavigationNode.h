// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/navigation/NavigationEntries.h"

#include <QIcon>
#include <QStandardItem>

#include <memory>

namespace fennar {

/** A picture in a file. Making an icon reads the file, so that is left until the icon is asked for. */
class NavigationPicture
{
public:
    explicit NavigationPicture(const QString& file) : mFile(file) {}

    const QIcon& icon();

private:
    QString mFile;
    QIcon mIcon;
};

} // namespace fennar

/**
 * An entry that was read from a navigation file: a page, a group or a command.
 *
 * Users cannot edit it. The model, or the node above, owns it. The host's interface names it, so it is in no
 * namespace.
 */
class NavigationNode : public QStandardItem
{
public:
    NavigationNode(fennar::NavigationKind kind, const QString& title);

    int type() const override { return UserType; }

    /** The icon is that of picture(), if there is one and none has been set. A command without a tip has its
     * summary. */
    QVariant data(int role = Qt::UserRole + 1) const override;

    fennar::NavigationKind kind() const
    {
        return static_cast<fennar::NavigationKind>(data(fennar::NavigationRole::Kind).toInt());
    }

    /** Null without a picture. Entries with the same picture share it. */
    const std::shared_ptr<fennar::NavigationPicture>& picture() const { return mPicture; }
    void set_picture(std::shared_ptr<fennar::NavigationPicture> picture);

private:
    std::shared_ptr<fennar::NavigationPicture> mPicture;
};

namespace fennar {

/**
 * Decides again whether @p entry and all entries below it wait for a component: an entry is enabled exactly
 * when it names no component or one that is loaded. Null does nothing.
 */
void recheck_components(QStandardItem* entry);

} // namespace fennar
