// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>

class Ostrel;
class QPoint;

namespace fennar {

class ConsoleOwner;

/**
 * Takes files that are dropped on the windows.
 *
 * On the command page their names go into the command. The journal editor opens them as journals. On the
 * central area a model is opened, a file of a format for import is imported, and a journal is opened in the
 * journal editor. What a component's own widget takes is its own.
 *
 * The files stay where they are: a drop is answered as a copy, whatever the other program proposes, and one
 * that could only move them is refused. One object while there is a main window; it goes before the window
 * does.
 */
class FileDrops : public QObject
{
    Q_OBJECT

public:
    using TakeText = std::function<void(const QString& text)>;

    /**
     * @param window   the main window, not null and not owned.
     * @param console  must outlive this object.
     * @param run      runs a command on the console, in whatever mode that is.
     * @param report   tells of a file that nothing can be done with; gets a whole line.
     */
    FileDrops(Ostrel* window, ConsoleOwner* console, const TakeText& run, const TakeText& report);
    ~FileDrops() override;

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    enum class Area { None, Console, Journals, Center };

    Area area_of(const QObject* object) const;
    void insert_names(const QStringList& files, const QPoint& position);
    void open_journal(const QString& file);
    void open_or_import(const QString& file);

    QPointer<Ostrel> mWindow;
    ConsoleOwner* mConsole;
    TakeText mRun;
    TakeText mReport;
};

} // namespace fennar
