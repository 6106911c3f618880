// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/navigation/NavigationNode.h"

#include <QHash>
#include <QStringList>

#include <memory>
#include <span>
#include <utility>
#include <vector>

class QIODevice;
class QXmlStreamReader;

namespace fennar {

/**
 * Reads navigation files, one after another, into one tree. The format, and how files merge, are described in
 * docs/navigation-files.md.
 *
 * Nothing that a file contains stops the others from being read. An object is used for one set of files.
 */
class NavigationFiles
{
public:
    /** @param messages  receives what goes wrong, one text for each trouble; not owned, never null. */
    explicit NavigationFiles(QStringList* messages);
    ~NavigationFiles();

    /** Reads the file @p path. Trouble is told under this path. */
    void read(const QString& path);
    /** Reads what an open @p device has. Trouble is told under @p path; icons are looked for beside it. */
    void read(QIODevice& device, const QString& path);

    /** Hands over the pages read so far, in order. The caller owns them. */
    std::vector<std::unique_ptr<NavigationNode>> take_pages();

private:
    struct Entry
    {
        NavigationNode* node;
        QString path;
        qint64 line;
    };
    using Key = std::pair<NavigationNode*, QString>;
    using Names = std::span<const QLatin1StringView>;

    void read_root();
    void read_contents(NavigationNode* parent, int depth);
    void read_entry(NavigationNode* parent, NavigationKind kind, int depth);
    NavigationNode* merged(NavigationNode* parent, NavigationKind kind);
    std::unique_ptr<NavigationNode> new_node(NavigationKind kind);
    void check_attributes(QLatin1StringView name, Names known);
    QString icon_file(const QString& name);

    bool next();
    QString attribute(QLatin1StringView name) const;
    void tell(const QString& trouble);
    void tell_at(qint64 line, qint64 column, const QString& trouble);
    void tell_xml_error(QIODevice& device);
    void tell_unreadable(const QString& reason);

    QStringList* mMessages;
    std::vector<std::unique_ptr<NavigationNode>> mPages;
    /** Every entry by the one above it (null for pages) and its own id. */
    QHash<Key, Entry> mEntries;
    /** Those made so far, by file. */
    QHash<QString, std::shared_ptr<NavigationPicture>> mPictures;

    // The file being read.
    QString mPath;
    QXmlStreamReader* mXml = nullptr;
    QString mEncoding;
    int mTroubles = 0;
    qint64 mLine = 0;
    qint64 mColumn = 0;
};

} // namespace fennar
