// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "files/handlers.h"
#include "frame/MainFrame.h"

#include <QAction>
#include <QDockWidget>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class CommandWidget;
class CommandWindow;
class FileLineEdit;
class JournalDocument;
class JournalEditor;
class Ostrel;
class OstrelFileMenu;
class PyAction;

/**
 * A host with its window, and a component, called "own", that has one of each thing in it. Every call out of
 * the shell passes moment(), where a test may act.
 */
class Stage : public QObject
{
    Q_OBJECT

public:
    Stage();
    ~Stage() override;
    Q_DISABLE_COPY_MOVE(Stage)

    /** Loads the window, and furnishes it unless somebody has unloaded it by then. */
    void load();
    /** Lets the component add what it has not got, or has lost. */
    void furnish();

    /** Takes out all bars, docks and pages that the component has, and deletes them. */
    void remove_component();

    /** Null while there is no window. */
    Ostrel* window() const;
    CommandWindow* console() const;
    OstrelFileMenu* file_menu() const;
    JournalEditor* editor() const;

    /** A name in a folder of the stage's own. */
    QString place(const QString& name) const;

    /** Tells of all trackers, as a framework does, what happens to the component "own". */
    void announce(void (ComponentTracker::*change)(const char*));

    /** To be called at every way out of the shell, with its name. */
    void moment(const QString& way);
    /** Acts once, when the shell takes the way @p way. */
    void act_at(const QString& way, std::function<void(Stage&)> act);
    bool has_acted() const { return mActed; }
    /** The ways that the shell has taken since the last call, each once. */
    QStringList take_ways() { return std::exchange(mWays, {}); }
    /** What the shell has done wrong without a crash. */
    const QStringList& problems() const { return mProblems; }

    /** Takes the documents out, if they are in, and deletes them. */
    void drop_documents();
    /** Takes the formats out of the menu and deletes them. */
    void drop_formats();
    /** Plugs another object for documents in. */
    void plug_documents();
    /** Gives the page of the options back and deletes it. */
    void drop_options_page();

    std::unique_ptr<MainFrame> frame;
    /** Begins what is under way once more. */
    std::function<void()> again;

    // What the component has. Those in pointers that watch are the window's while they are in it.
    QPointer<CommandWidget> page;
    QPointer<QWidget> other_page;
    QPointer<QDockWidget> dock;
    QPointer<QWidget> graphics;
    QPointer<QWidget> options_page;
    QPointer<QWidget> about;
    QPointer<JournalDocument> journal;
    std::unique_ptr<QAction> menu_action;
    std::unique_ptr<QAction> button_action;
    QPointer<PyAction> py_action;
    std::unique_ptr<Documents> documents;
    /** In the menu while it has them. */
    QList<ImportExportHandler*> formats;
    std::unique_ptr<FileLineEdit> field;

    /** Makes an empty file of that name in the stage's folder, and the user's choice. */
    void choose_existing(const QString& name);
    /** Makes the name of a file that is not there the user's choice. */
    void choose_new(const QString& name);

    // How the user answers what the shell asks.
    QString file;
    QString button = QStringLiteral("mYesButton");
    /** What happens to the file when it has been chosen. */
    std::function<void()> after_choice;

public slots:
    /** For any signal that is to count as a way out. */
    void tell_of_signal();

private:
    class Tracker;

    // The steps of furnish().
    void add_pages(Ostrel& shown);
    void add_actions(Ostrel& shown);
    void add_script(Ostrel& shown);
    void add_dock(Ostrel& shown);
    void add_graphics(Ostrel& shown);
    void add_panels(Ostrel& shown);
    void add_journal(Ostrel& shown);
    void add_files(Ostrel& shown);
    void watch(Ostrel& shown);

    std::vector<QAction*> make_action(std::unique_ptr<QAction>& action, const QString& name);
    void watch_signals(QObject* object, const QMetaObject& meta);
    void look_at_screen();
    void answer(QWidget* dialog);
    std::unique_ptr<Documents> make_documents();

    std::unique_ptr<Tracker> mTracker;
    std::unique_ptr<QTemporaryDir> mPlace;
    QTimer mTimer;
    QList<QPointer<QWidget>> mMet;
    int mLooks = 0;
    QString mWay;
    std::function<void(Stage&)> mAct;
    bool mFrameMade = false;
    bool mActed = false;
    QStringList mWays;
    QStringList mProblems;
};
