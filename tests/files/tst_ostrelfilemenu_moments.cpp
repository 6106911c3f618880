// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "FileMenuTest.h"
#include "files/OstrelFileMenu.h"
#include "files/OstrelMessageBox.h"
#include "frame/Ostrel.h"
#include "handlers.h"
#include "hostdouble/HostDouble.h"
#include "support/dialogs.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QPointer>
#include <QSettings>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const auto filters = u"Model Files (*.mdl)"_s;
const auto yes_button = u"mYesButton"_s;
const auto no_button = u"mNoButton"_s;

/** Tells of each dialog that opens, and answers it if it is still there then. */
class Answerer : public QObject
{
public:
    Answerer(const QString& button, const QString& file, std::function<void()> told)
        : mButton(button), mFile(file), mTold(std::move(told))
    {
        connect(&mTimer, &QTimer::timeout, this, &Answerer::look);
        mTimer.start(5);
    }

private:
    void look()
    {
        const QPointer<QWidget> dialog = QApplication::activeModalWidget();
        if (!dialog || dialog == mLast)
            return;
        mLast = dialog;
        mTold();
        if (auto* const question = qobject_cast<OstrelMessageBox*>(dialog))
            press(mButton)(question);
        else if (auto* const files = qobject_cast<QFileDialog*>(dialog))
            choose_with_return(files, mFile);
    }

    QString mButton;
    QString mFile;
    std::function<void()> mTold;
    QPointer<QWidget> mLast;
    QTimer mTimer;
};

} // namespace

/** What may be done to the file menu, its window and its handlers from inside what it calls. */
class TstOstrelFileMenuMoments : public FileMenuTest
{
    Q_OBJECT

private slots:
    void any_moment_of_a_flow_bears_any_act_data();
    void any_moment_of_a_flow_bears_any_act();
    void answer_is_not_for_a_handler_that_came_meanwhile_data();
    void answer_is_not_for_a_handler_that_came_meanwhile();
    void handler_at_the_place_of_a_deleted_one_is_another();
    void file_that_a_handler_gets_does_not_change_data();
    void file_that_a_handler_gets_does_not_change();
    void import_gets_copies_of_the_menus_texts();
    void window_may_go_under_each_file_dialog_data();
    void window_may_go_under_each_file_dialog();
    void window_may_go_under_the_file_error_box();
    void actions_follow_the_handler_that_was_plugged_in_last();
    void format_list_may_lose_its_window_while_it_tells();
    void handler_added_by_a_dying_handler_dies_too();

private:
    using Flow = void (*)(OstrelFileMenu*);

    void tear_down() override;
    void open_window();

    std::unique_ptr<Documents> mDocuments;
    std::unique_ptr<Documents> mOther;
};

void TstOstrelFileMenuMoments::tear_down()
{
    host().on_call = nullptr;
    mWindow.reset();
    mDocuments.reset();
    mOther.reset();
    FileMenuTest::tear_down();
}

void TstOstrelFileMenuMoments::open_window()
{
    mWindow.reset();
    mWindow = std::make_unique<Ostrel>();
    mMenu = mWindow->file_menu();
    OstrelFileMenu::mPath = mDirectory;
    OstrelFileMenu::mDoPrompt = true;
    for (auto* documents : {&mDocuments, &mOther}) {
        *documents = std::make_unique<Documents>();
        (*documents)->open_filters = filters;
        (*documents)->save_filters = filters;
        (*documents)->modified = true;
    }
    mMenu->set_open_save_handler(mDocuments.get());
    host().reset();
}

void TstOstrelFileMenuMoments::any_moment_of_a_flow_bears_any_act_data()
{
    QTest::addColumn<Flow>("flow");
    QTest::addColumn<bool>("named");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("act");
    QTest::addColumn<QStringList>("moments");

    const auto set = u"set_modified"_s;
    const auto dialog = u"dialog"_s;
    const auto title = u"title"_s;
    const auto print = u"BrokerCommand::operator<<"_s;
    const QStringList dropped{u"is_modified"_s, dialog, set};
    const QStringList saved{u"is_modified"_s, dialog, u"save_file"_s, set, u"is_modified"_s, set};
    const QStringList saved_as{
        u"get_save_location"_s, u"get_filters"_s, dialog, title, u"save_file_as"_s, set};
    const QStringList opened{u"get_filters"_s, dialog, print, print, print, title, u"open_file"_s};
    const struct
    {
        const char* name;
        Flow flow;
        bool named;
        QString button;
        QStringList moments;
    } flows[] = {
        {"new", [](OstrelFileMenu* menu) { menu->file_new(); }, true, no_button,
         dropped + QStringList{title, u"new_file"_s}},
        {"new, saved", [](OstrelFileMenu* menu) { menu->file_new(); }, true, yes_button,
         saved + QStringList{title, u"new_file"_s}},
        {"new, saved as", [](OstrelFileMenu* menu) { menu->file_new(); }, false, yes_button,
         QStringList{u"is_modified"_s, dialog} + saved_as +
             QStringList{u"is_modified"_s, set, title, u"new_file"_s}},
        {"open", [](OstrelFileMenu* menu) { menu->file_open(); }, true, no_button, dropped + opened},
        {"save", [](OstrelFileMenu* menu) { menu->file_save(); }, true, {}, {u"save_file"_s, set}},
        {"save as", [](OstrelFileMenu* menu) { menu->file_save_as(); }, true, {}, saved_as},
        {"directory", [](OstrelFileMenu* menu) { menu->file_directory(); }, true, {}, {u"set_directory"_s}},
        {"recent file", [](OstrelFileMenu* menu) { menu->open_recent_file(u"/b.mdl"_s); }, true, no_button,
         dropped + QStringList{title, u"open_file"_s}},
        {"recent import",
         [](OstrelFileMenu* menu) { menu->import_recent_file(u"import 'a'"_s); },
         true,
         {},
         {u"import_recent"_s}},
        {"closing", [](OstrelFileMenu* menu) { menu->check_modified(); }, true, yes_button, saved},
        {"window closed", [](OstrelFileMenu* menu) { qobject_cast<QWidget*>(menu->parent())->close(); }, true,
         no_button, dropped + QStringList{u"Mediator::request_exit"_s}},
    };
    for (const auto& [name, flow, named, button, moments] : flows) {
        for (const char* act : {"nothing", "window", "none", "deleted", "another"})
            QTest::addRow("%s, %s", name, act)
                << flow << named << button << QString::fromUtf8(act) << moments;
    }
}

void TstOstrelFileMenuMoments::any_moment_of_a_flow_bears_any_act()
{
    QFETCH(Flow, flow);
    QFETCH(bool, named);
    QFETCH(QString, button);
    QFETCH(QString, act);
    QFETCH(QStringList, moments);
    make_file(u"a.mdl"_s);

    const auto last = act == u"nothing"_s ? qsizetype(1) : moments.size();
    for (qsizetype chosen = 0; chosen < last; ++chosen) {
        // Newer versions of Qt go on with a window that has told of its title.
        if (act == u"window"_s && moments[chosen] == u"title"_s)
            continue;
        open_window();
        OstrelFileMenu::mFileName = named ? place(u"a.mdl"_s) : QString();
        mWindow->update_title();
        QStringList met;
        bool acted = false;
        bool wrong_call = false;
        const auto at = [&](const QString& moment) {
            if (acted)
                return;
            met << moment;
            if (met.size() != chosen + 1 || act == u"nothing"_s)
                return;
            acted = true;
            if (act == u"window"_s)
                mWindow.reset();
            else
                mMenu->set_open_save_handler(act == u"another"_s ? mOther.get() : nullptr);
            if (act == u"deleted"_s)
                mDocuments.reset();
        };
        const auto called = [&](const QString& operation) {
            wrong_call = wrong_call || acted;
            at(operation);
        };
        const auto called_other = [&](const QString&) { wrong_call = true; };
        mDocuments->on_call = mDocuments->on_question = called;
        mOther->on_call = mOther->on_question = called_other;
        host().on_call = at;
        connect(mWindow.get(), &QWidget::windowTitleChanged, mWindow.get(), [&] { at(u"title"_s); });
        {
            const Answerer answerer(button, place(u"b.mdl"_s), [&] { at(u"dialog"_s); });
            if (moments.contains(u"open_file"_s))
                make_file(u"b.mdl"_s);
            flow(mMenu);
        }
        host().on_call = nullptr;
        if (mDocuments)
            mDocuments->on_call = mDocuments->on_question = nullptr;
        QVERIFY2(!wrong_call, qPrintable(met.join(u", "_s)));
        QCOMPARE(met, act == u"nothing"_s ? moments : moments.first(chosen + 1));
        QFile::remove(place(u"b.mdl"_s));
    }
}

void TstOstrelFileMenuMoments::answer_is_not_for_a_handler_that_came_meanwhile_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("other_modified");
    QTest::newRow("yes") << yes_button << true;
    QTest::newRow("no") << no_button << true;
    QTest::newRow("no, unmodified") << no_button << false;
}

void TstOstrelFileMenuMoments::answer_is_not_for_a_handler_that_came_meanwhile()
{
    QFETCH(QString, button);
    QFETCH(bool, other_modified);
    open_window();
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    mOther->modified = other_modified;
    DialogDriver driver;
    driver.expect<OstrelMessageBox>([&](OstrelMessageBox* box) {
        mMenu->set_open_save_handler(mOther.get());
        press(button)(box);
    });
    const bool may_go = mMenu->check_modified();
    QVERIFY(driver.finish());
    // Nobody has agreed to lose what the other one holds, and it is not what has this name.
    QVERIFY(!may_go);
    QCOMPARE(mOther->modified, other_modified);
    QVERIFY(mDocuments->modified);
    QVERIFY(OstrelFileMenu::mDoPrompt);
    QCOMPARE(host().take_calls(),
             (QStringList{u"Documents::is_modified()"_s,
                          u"BrokerCommand::operator<<(\"ERROR: Missing open/save handler.\n\")"_s}));
}

void TstOstrelFileMenuMoments::handler_at_the_place_of_a_deleted_one_is_another()
{
    open_window();
    DialogDriver driver;
    driver.expect<OstrelMessageBox>([&](OstrelMessageBox* box) {
        mMenu->set_open_save_handler(nullptr);
        mDocuments->~Documents();
        new (mDocuments.get()) Documents;
        mDocuments->modified = true;
        mMenu->set_open_save_handler(mDocuments.get());
        press(no_button)(box);
    });
    const bool may_go = mMenu->check_modified();
    QVERIFY(driver.finish());
    QVERIFY(!may_go);
    QVERIFY(mDocuments->modified);
}

void TstOstrelFileMenuMoments::file_that_a_handler_gets_does_not_change_data()
{
    QTest::addColumn<Flow>("flow");
    QTest::addColumn<QString>("operation");
    QTest::newRow("save") << Flow([](OstrelFileMenu* menu) { menu->file_save(); }) << u"save_file"_s;
    QTest::newRow("save as") << Flow([](OstrelFileMenu* menu) { menu->file_save_as(); }) << u"save_file_as"_s;
    QTest::newRow("recent file") << Flow([](OstrelFileMenu* menu) {
        menu->open_recent_file(OstrelFileMenu::mFileName);
    }) << u"open_file"_s;
    QTest::newRow("recent import") << Flow([](OstrelFileMenu* menu) {
        menu->import_recent_file(OstrelFileMenu::mFileName);
    }) << u"import_recent"_s;
}

void TstOstrelFileMenuMoments::file_that_a_handler_gets_does_not_change()
{
    QFETCH(Flow, flow);
    QFETCH(QString, operation);

    /** Sets the current name, and looks at its argument afterwards. */
    class Renaming : public Documents
    {
    public:
        bool is_modified() override { return false; }
        void open_file(const QString& file) override { rename(file); }
        void import_recent(const QString& command) override { rename(command); }
        void save_file(const QString& file) override { rename(file); }
        void save_file_as(const QString& file, const QString&) override { rename(file); }

        QStringList seen;

    private:
        void rename(const QString& file)
        {
            seen << file;
            OstrelFileMenu::set_file_name(u"/other.mdl"_s);
            seen << file;
        }
    } documents;
    documents.save_filters = filters;

    OstrelFileMenu::mFileName = place(u"a.mdl"_s);
    mMenu->set_open_save_handler(&documents);
    DialogDriver driver;
    if (operation == u"save_file_as"_s)
        expect_choice(driver, place(u"a.mdl"_s));
    flow(mMenu);
    QVERIFY(driver.finish());
    QCOMPARE(documents.seen, (QStringList{place(u"a.mdl"_s), place(u"a.mdl"_s)}));
    mMenu->set_open_save_handler(nullptr);
}

void TstOstrelFileMenuMoments::import_gets_copies_of_the_menus_texts()
{
    class Setting : public ImportExportHandler
    {
    public:
        explicit Setting(OstrelFileMenu* menu) : ImportExportHandler(u"setting"_s), mMenu(menu)
        {
            mFilters = filters;
        }
        void execute(const QString& file, const QString& filter) override
        {
            OstrelFileMenu::set_file_name(u"/other"_s);
            mMenu->set_active_import_filter(u"other"_s);
            host().record(file + u", "_s + filter);
        }

    private:
        OstrelFileMenu* mMenu;
    };
    QVERIFY(mMenu->add_import(new Setting(mMenu)));
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    OstrelFileMenu::mActiveImportFilter = filters;
    mMenu->execute_import(OstrelFileMenu::mFileName, OstrelFileMenu::mActiveImportFilter);
    QCOMPARE(host().take_calls(), QStringList{u"/a.mdl, "_s + filters});
}

void TstOstrelFileMenuMoments::window_may_go_under_each_file_dialog_data()
{
    QTest::addColumn<Flow>("flow");
    QTest::newRow("import") << Flow([](OstrelFileMenu* menu) { menu->file_import(); });
    QTest::newRow("import of one format")
        << Flow([](OstrelFileMenu* menu) { menu->file_import_exodus_only(); });
    QTest::newRow("export") << Flow([](OstrelFileMenu* menu) { menu->file_export(); });
}

void TstOstrelFileMenuMoments::window_may_go_under_each_file_dialog()
{
    QFETCH(Flow, flow);
    QVERIFY(mMenu->add_import(new Format(filters)));
    QVERIFY(mMenu->add_export(new Format(filters)));
    OstrelFileMenu::mActiveImportFilter = u"before"_s;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog*) { mWindow.reset(); });
    host().take_calls();
    flow(mMenu);
    QVERIFY(driver.finish());
    QVERIFY(!mWindow);
    QCOMPARE(host().take_calls().filter(u"execute"_s), QStringList());
    QCOMPARE(OstrelFileMenu::mActiveImportFilter, u"before"_s);
}

void TstOstrelFileMenuMoments::window_may_go_under_the_file_error_box()
{
    mMenu->recent_file(u"/missing.mdl"_s);
    std::vector<QString> files;
    mMenu->get_recent_files(files);
    QCOMPARE(files.size(), std::size_t(1));
    QAction* recent = nullptr;
    for (QAction* action : mWindow->findChildren<QAction*>())
        if (action->text().startsWith(u"&1 "_s))
            recent = action;
    QVERIFY(recent);
    DialogDriver driver;
    driver.expect(u"QMessageBox"_s, [&](QWidget*) { mWindow.reset(); });
    recent->trigger();
    QVERIFY(driver.finish());
    QVERIFY(!mWindow);
}

void TstOstrelFileMenuMoments::actions_follow_the_handler_that_was_plugged_in_last()
{
    Documents documents;
    auto* first = mMenu->findChild<QAction*>(u"mFileNewAction"_s);
    auto* last = mMenu->findChild<QAction*>(u"mFileSaveAsAction"_s);
    connect(first, &QAction::changed, this, [&] {
        if (first->isEnabled())
            mMenu->set_open_save_handler(nullptr);
    });
    mMenu->set_open_save_handler(&documents);
    QVERIFY(!mMenu->get_open_save_handler());
    QVERIFY(!first->isEnabled());
    QVERIFY(!last->isEnabled());

    connect(last, &QAction::changed, this, [&] { mWindow.reset(); });
    disconnect(first, nullptr, this, nullptr);
    mMenu->set_open_save_handler(&documents);
    QVERIFY(!mWindow);
}

void TstOstrelFileMenuMoments::format_list_may_lose_its_window_while_it_tells()
{
    Format format(filters, u"mine"_s);
    QVERIFY(mMenu->add_import(&format));
    QVERIFY(mMenu->add_export(&format));
    auto* import = mMenu->findChild<QAction*>(u"mFileImportAction"_s);
    connect(import, &QAction::changed, this, [&] { mWindow.reset(); });
    mMenu->remove_component_items("mine");
    QVERIFY(!mWindow);
    QCOMPARE(Format::alive, 1);
}

void TstOstrelFileMenuMoments::handler_added_by_a_dying_handler_dies_too()
{
    class Parent : public Format
    {
    public:
        explicit Parent(OstrelFileMenu* menu) : Format(filters), mMenu(menu) {}
        ~Parent() override { mMenu->add_export(new Format(filters)); }

    private:
        OstrelFileMenu* mMenu;
    };
    QVERIFY(mMenu->add_import(new Parent(mMenu)));
    mWindow.reset();
    QCOMPARE(Format::alive, 0);
}

OSTREL_TEST(TstOstrelFileMenuMoments)
#include "tst_ostrelfilemenu_moments.moc"
