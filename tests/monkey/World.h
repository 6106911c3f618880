// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "own_objects.h"

#include <QList>
#include <QMap>
#include <QPointer>
#include <QString>

#include <array>
#include <memory>
#include <vector>

class MainFrame;
class Ostrel;
class PyAction;
class QAction;
class QDockWidget;
class QWidget;

/** What one component owns. The window may take docks, pages and formats along. */
struct Component
{
    explicit Component(const char* component_name) : name(component_name) {}

    const char* name;
    std::unique_ptr<Documents> documents;
    QList<QPointer<QAction>> actions;
    QList<QPointer<PyAction>> scripts;
    QList<QPointer<QDockWidget>> docks;
    QList<QPointer<QWidget>> console_pages;
    /** By their paths. */
    QMap<QString, QPointer<QWidget>> option_pages;
    QList<QPointer<QWidget>> canvases;
    QList<QPointer<QWidget>> abouts;
    QList<QPointer<Format>> formats;
};

/** An action that a component has put into a menu. */
struct MenuRow
{
    QString title;
    const char* component;
    QPointer<QAction> action;
};

/** The host's frame, the components, and what they should find in the window. */
class World
{
public:
    World();
    ~World();
    Q_DISABLE_COPY_MOVE(World)

    /** The window for components and the user: null while it is being built. */
    Ostrel* window() const;
    /** The frame, loaded or not. */
    MainFrame& frame() { return *mFrames.back(); }

    /** Makes a new frame if the last one has been unloaded, and loads it. */
    void load();
    /** Does nothing while a file dialog asks a question of its own, which lies on the stack: the dialog, and
     * so the window, cannot be deleted under it. */
    void unload();
    /** Deletes the frames that have been unloaded. Only for whoever none of them has called. */
    void forget_frames();

    /** A component leaves the window, and deletes what it owns. */
    void leave(Component& component);
    /** Takes its documents, or its formats, out of the window and deletes them. */
    void delete_documents(Component& component);
    void delete_formats(Component& component);

    /** Forgets the rows of @p component in all menus, or in one of them. */
    void forget_rows(const char* component, const QString& title = {});

    std::array<Component, 3> components{Component("one"), Component("two"), Component("three")};

    // What is in the window.
    QList<MenuRow> rows;
    QList<QPointer<QWidget>> tabs;
    QList<QPointer<Format>> imports;
    QList<QPointer<Format>> exports;
    QPointer<QWidget> graphics;
    const Documents* plugged = nullptr;

private:
    void forget_window();

    std::vector<std::unique_ptr<MainFrame>> mFrames;
    bool mLoading = false;
    bool mUnloading = false;
    bool mWasLoaded = false;
};
