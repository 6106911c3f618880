// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Stage.h"

#include "acts.h"
#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/FileLineEdit.h"
#include "files/OstrelFileMenu.h"
#include "files/OstrelMessageBox.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/PyAction.h"
#include "options/ComponentTool.h"
#include "options/OptionsPanel.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QPushButton>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

HostDouble& host()
{
    return HostDouble::instance();
}

QString class_of(const QObject* object)
{
    return object ? QString::fromUtf8(object->metaObject()->className()) : u"nothing"_s;
}

// Menus have no title.
QString waiting_way(const QWidget& widget, const QObject* parent)
{
    const QString title = widget.windowTitle().isEmpty() ? QString() : u" \"%1\""_s.arg(widget.windowTitle());
    return class_of(&widget) + title + u" over "_s + class_of(parent);
}

} // namespace

/** What the component wants to know of others. */
class Stage::Tracker : public ComponentTracker
{
public:
    explicit Tracker(Stage& stage) : mStage(stage) {}

    void component_loading(const char*) override { tell(u"loading"_s); }
    void component_loaded(const char*) override { tell(u"loaded"_s); }
    void component_unloading(const char*) override { tell(u"unloading"_s); }
    void component_unloaded(const char*) override { tell(u"unloaded"_s); }

private:
    void tell(const QString& change) { mStage.moment(u"ComponentTracker::component_"_s + change); }

    Stage& mStage;
};

Stage::Stage() : mTracker(std::make_unique<Tracker>(*this)), mPlace(std::make_unique<QTemporaryDir>())
{
    // What the documents and formats of the tests record is told by themselves, when they bear to be deleted.
    host().on_record = [this](const QString& call) {
        const QString way = call.section(u'(', 0, 0);
        // Nobody can take the window away under a panel that is being made: the window is its parent.
        const bool is_made = way.section("::"_L1, 0, 0) == way.section("::"_L1, 1);
        if (!call.startsWith(u"Documents"_s) && !call.startsWith(u"own::"_s) && !is_made)
            moment(way);
    };
    file = place(u"new.mdl"_s);
    OstrelFileMenu::mFileName.clear();
    OstrelFileMenu::mPath = place({});
    OstrelFileMenu::mDoPrompt = true;
    ComponentTool::sLastPath.clear();
    JournalEditor::set_save_prompt(true);
    connect(&mTimer, &QTimer::timeout, this, &Stage::look_at_screen);
    mTimer.setSingleShot(true);
    mTimer.start(1);
    host().has_user_interpreter = true;
}

Stage::~Stage()
{
    mAct = nullptr;
    again = nullptr;
    drop_documents();
    drop_formats();
    drop_options_page();
    if (Ostrel* shown = window()) {
        if (about)
            shown->help_menu()->remove_about(about);
        if (graphics)
            shown->set_graphics_widget(nullptr);
    }
    if (frame && frame->is_loaded())
        frame->unload_gui();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const QPointer<QWidget>& widget :
         {QPointer<QWidget>(page), other_page, QPointer<QWidget>(dock), graphics, options_page, about})
        delete widget.data();
    // Those that nobody owns.
    for (const QPointer<QWidget>& dialog : std::as_const(mMet))
        delete dialog.data();
    delete py_action.data();
    host().reset();
}

void Stage::load()
{
    // A frame makes the resources at once, and may lead here again.
    if (!frame && !std::exchange(mFrameMade, true))
        frame = std::make_unique<MainFrame>();
    if (frame && frame->load_gui())
        furnish();
}

void Stage::furnish()
{
    // Whoever is told of one thing may unload the window before the next.
    for (const auto step :
         {&Stage::add_pages, &Stage::add_actions, &Stage::add_script, &Stage::add_dock, &Stage::add_graphics,
          &Stage::add_panels, &Stage::add_journal, &Stage::add_files, &Stage::watch}) {
        if (Ostrel* const shown = window())
            (this->*step)(*shown);
    }
}

void Stage::remove_component()
{
    if (Ostrel* const shown = window()) {
        shown->remove_menu_items("own");
        shown->remove_toolbar_items("own");
        shown->remove_dock_windows("own");
    }
    delete dock.data();
    delete page.data();
    delete other_page.data();
    menu_action.reset();
    button_action.reset();
    drop_options_page();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Stage::add_pages(Ostrel& shown)
{
    CommandWindow* const output = shown.command_line();
    if (!page) {
        page = new CommandWidget;
        page->setPrompt(u"$ "_s, u"> "_s);
        watch_signals(page, CommandWidget::staticMetaObject);
        connect(output, &CommandWindow::dataToPrint, page, &CommandWidget::printOutput);
        connect(output, &CommandWindow::readyForPrompt, page, &CommandWidget::printPrompt);
        connect(output, &CommandWindow::readOnlyChanged, page, &CommandWidget::setReadOnly);
        output->add_command_tab(u"Own"_s, page);
        page->printPrompt();
    }
    if (!other_page) {
        other_page = new QPlainTextEdit;
        output->add_command_tab(u"Other"_s, other_page);
    }
}

std::vector<QAction*> Stage::make_action(std::unique_ptr<QAction>& action, const QString& name)
{
    action = std::make_unique<QAction>(name);
    action->setObjectName(name);
    connect(action.get(), &QAction::triggered, this, [this, name] { moment(u"action in the "_s + name); });
    return {action.get()};
}

void Stage::add_actions(Ostrel& shown)
{
    if (!menu_action) {
        std::vector<QAction*> actions = make_action(menu_action, u"menu"_s);
        shown.add_to_menu(u"Own"_s, actions, "own");
    }
    if (!button_action) {
        std::vector<QAction*> actions = make_action(button_action, u"toolbar"_s);
        shown.add_to_toolbar("own", u"Own"_s, actions, "own", Qt::TopToolBarArea);
    }
}

void Stage::add_script(Ostrel& shown)
{
    if (py_action)
        return;
    py_action = new PyAction;
    py_action->setText("Script");
    py_action->setActivateMethod("script()");
    std::vector<PyAction*> actions{py_action};
    shown.add_to_menu("Scripts", actions, "own");
}

void Stage::add_dock(Ostrel& shown)
{
    if (dock)
        return;
    dock = new QDockWidget(u"Own"_s);
    dock->setObjectName(u"own dock"_s);
    shown.add_dock_window(dock, "own", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas);
}

void Stage::add_graphics(Ostrel& shown)
{
    if (graphics)
        return;
    graphics = new QWidget;
    shown.set_graphics_widget(graphics);
}

void Stage::add_panels(Ostrel& shown)
{
    if (!options_page) {
        options_page = new QWidget;
        shown.options()->add_panel(u"Own/Page"_s, options_page);
    }
    if (!about) {
        about = new QWidget;
        shown.help_menu()->add_about(about);
    }
}

void Stage::add_journal(Ostrel& shown)
{
    if (journal)
        return;
    shown.journal_editor()->add_document(u"one\ntwo\n"_s);
    journal = shown.journal_editor()->findChildren<JournalDocument*>().constLast();
}

void Stage::add_files(Ostrel& shown)
{
    if (!documents)
        plug_documents();
    if (formats.isEmpty()) {
        for (const auto add : {&OstrelFileMenu::add_import, &OstrelFileMenu::add_export}) {
            auto* format = new Format(u"Own (*.own)"_s, u"own"_s);
            format->on_execute = [this] { moment(u"ImportExportHandler::execute"_s); };
            format->on_end = [this] { moment(u"ImportExportHandler::~ImportExportHandler"_s); };
            // The menu owns what it takes.
            if ((shown.file_menu()->*add)(format))
                formats << format;
            else
                delete format;
        }
    }
    if (!field) {
        field = std::make_unique<FileLineEdit>();
        watch_signals(field.get(), FileLineEdit::staticMetaObject);
    }
}

void Stage::watch(Ostrel& shown)
{
    std::vector<ComponentTracker*>& trackers = host().trackers;
    if (std::find(trackers.begin(), trackers.end(), mTracker.get()) != trackers.end())
        return;
    trackers.push_back(mTracker.get());
    watch_signals(&shown, Ostrel::staticMetaObject);
    watch_signals(shown.command_line(), CommandWindow::staticMetaObject);
    watch_signals(shown.journal_editor(), JournalEditor::staticMetaObject);
    watch_signals(shown.options(), OptionsPanel::staticMetaObject);
}

Ostrel* Stage::window() const
{
    return frame && frame->is_loaded() ? Ostrel::instance() : nullptr;
}

CommandWindow* Stage::console() const
{
    return window() ? window()->command_line() : nullptr;
}

OstrelFileMenu* Stage::file_menu() const
{
    return window() ? window()->file_menu() : nullptr;
}

JournalEditor* Stage::editor() const
{
    return window() ? window()->journal_editor() : nullptr;
}

QString Stage::place(const QString& name) const
{
    return mPlace->filePath(name);
}

void Stage::choose_existing(const QString& name)
{
    file = place(name);
    if (QFile made(file); !made.open(QIODevice::WriteOnly))
        qFatal("no file %s", qPrintable(file));
}

void Stage::choose_new(const QString& name)
{
    file = place(name);
    QFile::remove(file);
}

void Stage::announce(void (ComponentTracker::*change)(const char*))
{
    // One that is told of it may take others out.
    const std::vector<ComponentTracker*> trackers = host().trackers;
    for (ComponentTracker* tracker : trackers) {
        const std::vector<ComponentTracker*>& now = host().trackers;
        if (std::find(now.begin(), now.end(), tracker) != now.end())
            (tracker->*change)("own");
    }
}

void Stage::moment(const QString& way)
{
    if (!mWays.contains(way))
        mWays << way;
    if (way != mWay || mActed)
        return;
    mActed = true;
    if (const auto act = std::exchange(mAct, nullptr))
        act(*this);
}

void Stage::act_at(const QString& way, std::function<void(Stage&)> act)
{
    mWay = way;
    mAct = std::move(act);
}

void Stage::drop_documents()
{
    if (file_menu() && file_menu()->get_open_save_handler() == documents.get())
        file_menu()->set_open_save_handler(nullptr);
    documents.reset();
}

void Stage::drop_formats()
{
    if (file_menu()) {
        file_menu()->remove_component_items("own");
        qDeleteAll(formats);
    }
    formats.clear();
}

void Stage::drop_options_page()
{
    if (window())
        window()->options()->remove_panel(u"Own/Page"_s);
    delete options_page.data();
}

void Stage::plug_documents()
{
    // The one before must live until the menu knows the other one.
    std::unique_ptr<Documents> other = make_documents();
    file_menu()->set_open_save_handler(other.get());
    documents = std::move(other);
}

std::unique_ptr<Documents> Stage::make_documents()
{
    auto made = std::make_unique<Documents>();
    made->open_filters = u"Model Files (*.mdl)"_s;
    made->save_filters = made->open_filters;
    made->modified = true;
    made->on_call = [this, mine = made.get()](const QString& operation) {
        if (!file_menu() || file_menu()->get_open_save_handler() != mine)
            mProblems << operation + u" of documents that are not plugged in"_s;
        moment(u"OpenSaveHandler::"_s + operation);
    };
    made->on_question = made->on_call;
    return made;
}

void Stage::tell_of_signal()
{
    const QMetaMethod method = sender()->metaObject()->method(senderSignalIndex());
    moment(QString::fromLatin1(method.enclosingMetaObject()->className()) + u"::"_s +
           QString::fromLatin1(method.name()));
}

void Stage::watch_signals(QObject* object, const QMetaObject& meta)
{
    const QMetaMethod told = staticMetaObject.method(staticMetaObject.indexOfSlot("tell_of_signal()"));
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal)
            connect(object, meta.method(i), this, told);
    }
}

void Stage::look_at_screen()
{
    // Anew each time: a timer does not go off while its own slot waits for a dialog.
    mTimer.start(1);
    if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        const QPointer<QMenu> open(menu);
        moment(waiting_way(*menu, menu->parent()));
        if (open)
            open->close();
        return;
    }
    const QPointer<QWidget> dialog = QApplication::activeModalWidget();
    if (!dialog || dialog->objectName() == dialog_of_an_act)
        return;
    if (mMet.contains(dialog)) {
        // An answer that the dialog does not take.
        if (++mLooks > 20)
            dialog->close();
        return;
    }
    mMet << dialog;
    mLooks = 0;
    moment(waiting_way(*dialog, dialog->parent()));
    if (dialog && dialog->isVisible())
        answer(dialog);
}

void Stage::answer(QWidget* dialog)
{
    if (auto* const files = qobject_cast<QFileDialog*>(dialog)) {
        if (files->fileMode() == QFileDialog::Directory)
            files->setDirectory(mPlace->path());
        else
            files->selectFile(file);
        static_cast<QDialog*>(files)->accept();
        if (const auto act = std::exchange(after_choice, nullptr))
            act();
    } else if (auto* const wanted = dialog->findChild<QLineEdit*>(u"mFindText"_s)) {
        wanted->setText(u"two"_s);
        dialog->findChild<QPushButton*>(u"pbNext"_s)->click();
        dialog->close();
    } else if (auto* const choice = dialog->findChild<QPushButton*>(button)) {
        choice->click();
    } else if (auto* const box = qobject_cast<QMessageBox*>(dialog)) {
        box->buttons().constFirst()->click();
    } else if (auto* const other = qobject_cast<QDialog*>(dialog)) {
        other->accept();
    } else {
        dialog->close();
    }
}
