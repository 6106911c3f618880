// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/NavigationReader.h"

#include "host/navigation/NavigationModel.h"
#include "workbench/host/navigation/NavigationFiles.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <functional>

using namespace fennar;
using namespace Qt::StringLiterals;

NavigationReader::NavigationReader() = default;

NavigationReader::~NavigationReader() = default;

void NavigationReader::setResources(NavigationResources* resources)
{
    mResources = resources;
}

void NavigationReader::setModel(NavigationModel* model, QSet<NavigationNode*>* nodes,
                                QMap<NavigationNode*, QString>* titles)
{
    mModel = model;
    mNodes = nodes;
    mTitles = titles;
}

void NavigationReader::buildNavigation(const QString& directory, const QString& extension)
{
    messages.clear();
    if (!mModel)
        return;
    // Reading starts over, so that what no file says any longer does not stay.
    mModel->clear();
    if (mNodes)
        mNodes->clear();
    if (mTitles)
        mTitles->clear();

    const QString shown = QDir::toNativeSeparators(directory);
    const QFileInfo info(directory);
    if (directory.isEmpty() || !info.exists()) {
        messages << u"%1: the directory does not exist"_s.arg(shown);
        return;
    }
    if (!info.isDir()) {
        messages << u"%1: it is not a directory"_s.arg(shown);
        return;
    }
    if (!info.isReadable()) {
        messages << u"%1: the directory cannot be read"_s.arg(shown);
        return;
    }

    const QDir folder(directory);
    // The system's special files include links that lead nowhere; these are told, not passed over.
    QStringList names = folder.entryList(QDir::Files | QDir::System, QDir::Unsorted);
    names.removeIf([&extension](const QString& name) { return !name.endsWith(extension); });
    names.sort();
    if (names.isEmpty())
        messages << u"%1: no file ends in \"%2\""_s.arg(shown, extension);

    NavigationFiles files(&messages);
    for (const QString& name : names)
        files.read(folder.filePath(name));

    QList<QStandardItem*> pages;
    for (std::unique_ptr<NavigationNode>& page : files.take_pages()) {
        if (mResources)
            recheck_components(page.get());
        pages << page.release();
    }
    const std::function<void(QStandardItem*)> note = [&](QStandardItem* item) {
        auto* node = static_cast<NavigationNode*>(item);
        if (mNodes)
            mNodes->insert(node);
        if (mTitles)
            mTitles->insert(node, node->text());
        for (int row = 0; row < node->rowCount(); ++row)
            note(node->child(row));
    };
    if (mNodes || mTitles)
        std::ranges::for_each(pages, note);
    // One by one: appending a list would leave the entries inside the pages without their model.
    for (QStandardItem* page : std::as_const(pages))
        mModel->appendRow(page);
}
