// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/FileDrops.h"

#include "console/CommandWidget.h"
#include "files/OpenSaveHandler.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/python/python_literal.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QRegularExpression>
#include <QTimer>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

QStringList local_files(const QMimeData* data)
{
    QStringList files;
    const QList<QUrl> urls = data->urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile())
            files << QDir::toNativeSeparators(url.toLocalFile());
    }
    return files;
}

/** The first entry of @p filters, in the form of file dialogs, that names files like @p file; empty if there
 * is none. One for all files does not count. */
QString fitting_filter(const QString& filters, const QString& file)
{
    static const QRegularExpression in_parentheses(u"\\(([^()]*)\\)\\s*$"_s);
    static const QRegularExpression separators(u"[\\s;]+"_s);
    const QString name = QFileInfo(file).fileName();
    const QStringList entries = filters.split(u";;"_s);
    for (const QString& entry : entries) {
        QStringList patterns = in_parentheses.match(entry).captured(1).split(separators, Qt::SkipEmptyParts);
        patterns.removeAll(u"*"_s);
        patterns.removeAll(u"*.*"_s);
        if (QDir::match(patterns, name))
            return entry;
    }
    return {};
}

} // namespace

FileDrops::FileDrops(Ostrel* window, ConsoleOwner* console, const TakeText& run, const TakeText& report)
    : mWindow(window), mConsole(console), mRun(run), mReport(report)
{
    window->centralWidget()->setAcceptDrops(true);
    window->journal_editor()->setAcceptDrops(true);
    // On the application, since journals come and go.
    QCoreApplication::instance()->installEventFilter(this);
}

FileDrops::~FileDrops()
{
    if (!mWindow)
        return;
    mWindow->centralWidget()->setAcceptDrops(false);
    mWindow->journal_editor()->setAcceptDrops(false);
}

bool FileDrops::eventFilter(QObject* object, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return false;
    auto* drop = static_cast<QDropEvent*>(event);
    const Area area = area_of(object);
    const QStringList files = area == Area::None ? QStringList() : local_files(drop->mimeData());
    if (files.isEmpty())
        return false;
    const Qt::DropActions offered = drop->possibleActions();
    const bool is_fixed = area == Area::Console && mConsole->command_page()->isReadOnly();
    if (is_fixed || !(offered & (Qt::CopyAction | Qt::LinkAction))) {
        drop->ignore();
        return true;
    }
    drop->setDropAction(offered & Qt::CopyAction ? Qt::CopyAction : Qt::LinkAction);
    drop->accept();
    if (type != QEvent::Drop)
        return true;
    if (area == Area::Console) {
        insert_names(files, drop->position().toPoint());
        return true;
    }
    // When the drop is over: a question may follow, and the other program waits.
    for (const QString& file : files) {
        QTimer::singleShot(0, this, [this, area, file] {
            if (!mWindow)
                return;
            if (area == Area::Journals)
                open_journal(file);
            else
                open_or_import(file);
        });
    }
    return true;
}

FileDrops::Area FileDrops::area_of(const QObject* object) const
{
    const auto* widget = qobject_cast<const QWidget*>(object);
    if (!widget || !mWindow)
        return Area::None;
    if (widget == mConsole->command_page()->viewport())
        return Area::Console;
    if (widget == mWindow->centralWidget())
        return Area::Center;
    return widget->window() == mWindow->journal_editor() ? Area::Journals : Area::None;
}

void FileDrops::insert_names(const QStringList& files, const QPoint& position)
{
    const bool python = mConsole->python_mode();
    QStringList names;
    for (const QString& file : files)
        names << (python ? python_literal(file) : quote_word(file));
    CommandWidget* page = mConsole->command_page();
    page->setTextCursor(page->cursorForPosition(position));
    // In a command the next name is one more word.
    page->insertInCommand(python ? names.join(u", "_s) : names.join(u' ') + u' ');
    page->setFocus(Qt::OtherFocusReason);
}

void FileDrops::open_journal(const QString& file)
{
    mWindow->tools_menu()->show_journal_editor();
    mWindow->journal_editor()->open_file(file);
}

void FileDrops::open_or_import(const QString& file)
{
    OstrelFileMenu* menu = mWindow->file_menu();
    QString models;
    if (OpenSaveHandler* handler = menu->get_open_save_handler())
        handler->get_filters(models, false);
    if (!fitting_filter(models, file).isEmpty()) {
        mRun(u"open "_s + quote_word(file));
        return;
    }
    QString formats;
    menu->get_import_filters(formats);
    const QString format = fitting_filter(formats, file);
    if (!format.isEmpty())
        menu->execute_import(file, format);
    else if (QDir::match({u"*.jou"_s, u"*.py"_s}, QFileInfo(file).fileName()))
        open_journal(file);
    else
        mReport(u"ERROR: %1 is no model, no journal, and of no format for import\n"_s.arg(
            CommandError::shown(file, file.size())));
}

} // namespace fennar
