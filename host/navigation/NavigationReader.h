// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

class NavigationModel;
class NavigationNode;
class NavigationResources;

/** Reads navigation files into a NavigationModel. */
class NavigationReader
{
public:
    NavigationReader();
    ~NavigationReader();

    /** Sets whom to ask about components. Not owned; null means that every entry is shown. */
    void setResources(NavigationResources* resources);

    /**
     * Sets the model to fill.
     *
     * @param model   not owned; null means that nothing is read.
     * @param nodes   receives the nodes read, or null.
     * @param titles  receives the title of each node, or null.
     */
    void setModel(NavigationModel* model, QSet<NavigationNode*>* nodes,
                  QMap<NavigationNode*, QString>* titles);

    /**
     * Reads all files of @p directory whose names end in @p extension, in the order of their names.
     *
     * Reading starts over: what the model and messages held before is gone. Whatever goes wrong is told in
     * messages; what could be read stands in the model.
     */
    void buildNavigation(const QString& directory, const QString& extension);

    /** What went wrong, one text without line end for each trouble. */
    QStringList messages;

private:
    NavigationResources* mResources = nullptr;
    NavigationModel* mModel = nullptr;
    QSet<NavigationNode*>* mNodes = nullptr;
    QMap<NavigationNode*, QString>* mTitles = nullptr;
};
