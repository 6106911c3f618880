// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/component_manager/ComponentManager.h"

#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "workbench/application/component_manager/component_commands.h"
#include "workbench/application/component_manager/component_settings.h"
#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/sdk/component/Component.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPluginLoader>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** How long the start waits for a command that runs before it looks again. */
constexpr std::chrono::milliseconds command_patience(50);

QString name_of_file(const QString& file)
{
    const QString name = QFileInfo(file).completeBaseName();
    return name.startsWith(u"lib"_s) ? name.sliced(3) : name;
}

/** What a component threw, as one line. Only to be called in a catch block. */
QString caught()
{
    try {
        throw;
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what()).simplified();
    } catch (...) {
        return u"an exception of an unknown kind"_s;
    }
}

/** What the plugin tool tells of a component beside its name and version, loaded or not: lines in the user's
 * language. */
QString tool_tip(const ComponentManager::Component& component)
{
    QStringList lines{component.file};
    if (!component.commands.isEmpty())
        lines
            << QCoreApplication::translate("Workbench", "Commands: %1").arg(component.commands.join(u", "_s));
    if (!component.needs.isEmpty())
        lines << QCoreApplication::translate("Workbench", "Needs: %1").arg(component.needs.join(u", "_s));
    return lines.join(u'\n');
}

/** The entry of a file; the end if there is none. */
template <typename Entries>
auto find_file(Entries& entries, const QString& file)
{
    return std::ranges::find_if(entries,
                                [&](const auto& entry) { return entry && entry->about.file == file; });
}

/** Whether there is a dialog or menu that the user has to close first. */
bool blocks_window()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) &&
           (QApplication::activeModalWidget() || QApplication::activePopupWidget());
}

} // namespace

struct ComponentManager::Entry
{
    Component about;
    /** Belongs to the plugin, which stays until the program ends; null until that is mapped. */
    fennar::Component* component = nullptr;
    /** What the file was when it was looked into, or mapped. */
    QDateTime file_time;
    qint64 file_size = -1;
    ComponentMetadata metadata;
    /** Exists while the component is loaded. */
    std::unique_ptr<ComponentContext> context;

    /** Reads what the file tells, unless that has been done and it is the same. */
    void look_into_file();
    bool is_changed() const;
};

bool ComponentManager::Entry::is_changed() const
{
    const QFileInfo file(about.file);
    return file.lastModified() != file_time || file.size() != file_size;
}

void ComponentManager::Entry::look_into_file()
{
    // What is mapped goes on being what it was.
    if (component || !is_changed())
        return;
    const QFileInfo file(about.file);
    file_time = file.lastModified();
    file_size = file.size();
    metadata = ComponentMetadata::read(about.file);
    about.name = metadata.name.isEmpty() ? name_of_file(about.file) : metadata.name;
    about.version = metadata.version;
    about.commands = metadata.fault.isEmpty() ? metadata.commands : QStringList();
    about.needs = metadata.needs;
}

ComponentManager::ComponentManager(CommandInterpreter& interpreter, const QString& notes)
    : mInterpreter(interpreter), mMark(notes), mTurns(std::make_unique<QObject>())
{
    for (const QStringList crashed = mMark.take_crashed(); const QString& file : crashed)
        components_crashed.set(file, true);
    HostMediator::instance().set_component_source(this);
    mInterpreter.registry().set_absent_hint([this](const QString& name) { return hint_for_command(name); });
}

ComponentManager::~ComponentManager()
{
    unload_all();
    mInterpreter.registry().set_absent_hint(nullptr);
    HostMediator::instance().set_component_source(nullptr);
    // Code that has run stays, see the class comment.
}

QString ComponentManager::state_word(State state)
{
    // In the order of the states.
    static const QStringList words{u"unloaded"_s, u"loading"_s, u"loaded"_s, u"unloading"_s};
    return words.value(int(state));
}

QString ComponentManager::component_directory() const
{
    return default_component_directory();
}

QString ComponentManager::component_path() const
{
    return fennar::component_path();
}

void ComponentManager::set_component_path(const QString& path)
{
    fennar::set_component_path(path);
}

QStringList ComponentManager::search()
{
    std::vector<std::unique_ptr<Entry>> known = std::exchange(mEntries, {});
    const QStringList directories = component_path().split(u';', Qt::SkipEmptyParts);
    for (const QString& directory : directories) {
        const QFileInfoList files = QDir(directory).entryInfoList({u"*.so"_s}, QDir::Files, QDir::Name);
        for (const QFileInfo& file : files) {
            const QString path = file.canonicalFilePath();
            if (path.isEmpty() || find_file(mEntries, path) != mEntries.end())
                continue;
            if (const auto found = find_file(known, path); found != known.end())
                mEntries.push_back(std::move(*found));
            entry_of_file(path);
        }
    }
    // Whatever was mapped is known for good.
    for (auto& entry : known) {
        if (entry && (entry->component || entry->about.state != State::Unloaded))
            mEntries.push_back(std::move(entry));
    }
    QStringList files;
    for (const auto& entry : mEntries)
        files << entry->about.file;
    return files;
}

ComponentManager::Entry& ComponentManager::entry_of_file(const QString& file)
{
    auto found = find_file(mEntries, file);
    if (found == mEntries.end()) {
        mEntries.push_back(std::make_unique<Entry>());
        mEntries.back()->about.file = file;
        found = std::prev(mEntries.end());
    }
    (*found)->look_into_file();
    return **found;
}

ComponentManager::Entry* ComponentManager::entry_named(const QString& name) const
{
    Entry* first = nullptr;
    for (const auto& entry : mEntries) {
        if (entry->about.name != name)
            continue;
        if (entry->about.state != State::Unloaded)
            return entry.get();
        if (!first)
            first = entry.get();
    }
    return first;
}

QString ComponentManager::hint_for_command(const QString& name)
{
    for (const Component& about : components()) {
        if (about.state == State::Unloaded && about.commands.contains(name))
            return u"it comes with the component \"%1\", which %2"_s.arg(
                about.name, about.refusal.isEmpty() ? u"\"load %1\" loads"_s.arg(about.name)
                                                    : u"is refused: "_s + about.refusal);
    }
    return {};
}

std::vector<ComponentManager::Component> ComponentManager::components()
{
    if (!mBusy)
        search();
    std::vector<Component> result;
    for (const auto& entry : mEntries) {
        Component about = entry->about;
        about.off = components_off.contains(about.name);
        about.crashed = components_crashed.contains(about.file);
        result.push_back(about);
    }
    return result;
}

std::vector<ComponentRecord> ComponentManager::component_records()
{
    std::vector<ComponentRecord> records;
    for (const Component& component : components())
        records.push_back(
            {component.name, component.version, tool_tip(component), state_word(component.state), 0});
    return records;
}

void ComponentManager::start(const std::function<void()>& done)
{
    mWaiting = search();
    mDone = done;
    QTimer::singleShot(0, mTurns.get(), [this] { load_next(); });
}

void ComponentManager::load_next()
{
    if (mInterpreter.is_running() || mBusy) {
        QTimer::singleShot(command_patience, mTurns.get(), [this] { load_next(); });
        return;
    }
    if (mWaiting.isEmpty()) {
        if (const std::function<void()> done = std::exchange(mDone, nullptr))
            done();
        return;
    }
    load_if_wanted(mWaiting.takeFirst());
    QTimer::singleShot(0, mTurns.get(), [this] { load_next(); });
}

void ComponentManager::load_all()
{
    for (const QStringList files = search(); const QString& file : files)
        load_if_wanted(file);
}

void ComponentManager::load_if_wanted(const QString& file)
{
    Entry& entry = entry_of_file(file);
    if (entry.about.state != State::Unloaded || components_off.contains(entry.about.name))
        return;
    if (!components_crashed.contains(file)) {
        load_entry(entry, false);
        return;
    }
    entry.about.refusal =
        u"left out, since the program ended while it was being loaded; \"load %1\" turns it "
        "on again"_s.arg(entry.about.name);
    report(entry, entry.about.refusal);
}

QString ComponentManager::load(const QString& what, QString* name)
{
    if (mBusy)
        return u"another component is being loaded or unloaded"_s;
    search();
    Entry* entry = nullptr;
    if (what.contains(u'/') || what.endsWith(".so"_L1)) {
        const QFileInfo file(what);
        if (!file.isFile())
            return u"there is no file \"%1\""_s.arg(what);
        entry = &entry_of_file(file.canonicalFilePath());
    } else {
        entry = entry_named(what);
    }
    if (!entry)
        return u"there is no component \"%1\" in the component path"_s.arg(what);
    if (entry->about.state != State::Unloaded)
        return u"the component \"%1\" is loaded"_s.arg(entry->about.name);
    const QString refusal = load_entry(*entry, true);
    if (name)
        *name = entry->about.name;
    return refusal;
}

QString ComponentManager::load_entry(Entry& entry, bool asked_for)
{
    if (asked_for)
        components_crashed.set(entry.about.file, false);
    const QScopedValueRollback<bool> busy(mBusy, true);
    entry.look_into_file();
    entry.about.refusal = entry.metadata.fault;
    if (entry.about.refusal.isEmpty())
        entry.about.refusal = load_needed(entry, asked_for);
    if (entry.about.refusal.isEmpty())
        entry.about.refusal = load_noted(entry);
    if (entry.about.refusal.isEmpty()) {
        if (asked_for && mRemember)
            components_off.set(entry.about.name, false);
    } else if (!asked_for) {
        report(entry, u"not loaded: "_s + entry.about.refusal);
    }
    return entry.about.refusal;
}

QString ComponentManager::load_needed(Entry& entry, bool asked_for)
{
    mNeeding.push_back(&entry);
    const auto end = qScopeGuard([this] { mNeeding.pop_back(); });
    for (const QString& name : std::as_const(entry.metadata.needs)) {
        Entry* const needed = entry_named(name);
        const QString reason = u"it needs the component \"%1\", which "_s.arg(name);
        if (!needed)
            return reason + u"is not in the component path"_s;
        if (needed->about.state == State::Loaded)
            continue;
        if (std::find(mNeeding.begin(), mNeeding.end(), needed) != mNeeding.end())
            return reason + u"needs it in turn"_s;
        if (!asked_for && (components_off.contains(name) || components_crashed.contains(needed->about.file)))
            return reason + u"is off"_s;
        if (!load_entry(*needed, asked_for).isEmpty())
            return reason + u"is refused: "_s + needed->about.refusal;
    }
    return {};
}

QString ComponentManager::load_noted(Entry& entry)
{
    const auto end = qScopeGuard([this] { mMark.end(); });
    if (!mMark.begin(entry.about.file) && !std::exchange(mToldOfNotes, true) && mReport)
        mReport(u"ERROR: notes on components that are being loaded cannot be written in \"%1\"; the next "
                "start would not know which one has crashed\n"_s.arg(mMark.directory()));
    const QString refusal = open(entry);
    return refusal.isEmpty() ? run_load(entry) : refusal;
}

QString ComponentManager::open(Entry& entry)
{
    if (entry.component && entry.is_changed())
        return u"its file has changed since it was loaded first; the program must be started anew"_s;
    if (QString conflict = name_conflict(entry); !conflict.isEmpty() || entry.component)
        return conflict;
    QPluginLoader plugin(entry.about.file);
    // All symbols must be found now: a missing one must not end the program later.
    plugin.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (!plugin.load())
        return u"it cannot be loaded: "_s + plugin.errorString().simplified();
    entry.component = qobject_cast<fennar::Component*>(plugin.instance());
    return entry.component ? QString() : u"its plugin holds no component"_s;
}

QString ComponentManager::name_conflict(const Entry& entry) const
{
    const QString& name = entry.about.name;
    const auto has_name = [&](const auto& other) { return &*other != &entry && other->about.name == name; };
    if (const auto taken = std::find_if(mLoaded.begin(), mLoaded.end(), has_name); taken != mLoaded.end())
        return u"the name \"%1\" is taken by %2"_s.arg(name, (*taken)->about.file);
    // Where code of that name has run, commands that bear it were left by it.
    const bool has_run = std::any_of(mEntries.begin(), mEntries.end(), [&](const auto& other) {
        return other->component && other->about.name == name;
    });
    const bool is_free = has_run || !mInterpreter.registry().has_owner(name);
    return is_free ? QString() : u"the name \"%1\" is taken by the program"_s.arg(name);
}

QString ComponentManager::run_load(Entry& entry)
{
    // What it has left of an earlier time, round its context, would be in its way.
    mInterpreter.registry().remove_owner(entry.about.name);
    entry.about.state = State::Loading;
    tell(&ComponentTracker::component_loading, entry);
    entry.context = std::make_unique<ComponentContext>(
        entry.about.name, [this, &entry](const QString& text) { report(entry, text); });
    try {
        entry.component->load(*entry.context);
    } catch (...) {
        const QString failure = u"it failed: "_s + caught();
        entry.context.reset();
        entry.about.state = State::Unloaded;
        tell(&ComponentTracker::component_unloaded, entry);
        return failure;
    }
    entry.about.state = State::Loaded;
    tell_names_changed();
    mLoaded.push_back(&entry);
    set_component_loaded(entry.about.name, true);
    tell(&ComponentTracker::component_loaded, entry);
    return {};
}

QString ComponentManager::unload(const QString& name)
{
    if (mBusy)
        return u"another component is being loaded or unloaded"_s;
    search();
    Entry* entry = entry_named(name);
    if (!entry)
        return u"there is no component \"%1\""_s.arg(name);
    if (entry->about.state != State::Loaded)
        return u"the component \"%1\" is not loaded"_s.arg(name);
    for (const Entry* other : mLoaded) {
        if (other->metadata.needs.contains(name))
            return u"the component \"%1\" needs it; unload that first"_s.arg(other->about.name);
    }
    if (mInterpreter.is_running(name))
        return u"a command of the component \"%1\" is running"_s.arg(name);
    if (blocks_window())
        return u"a dialog or menu is open, which may be that of the component \"%1\"; close it first"_s.arg(
            name);
    if (!may_lose_data(*entry))
        return u"the component \"%1\" holds unsaved data"_s.arg(name);
    run_unload(*entry);
    if (mRemember)
        components_off.set(name, true);
    return {};
}

bool ComponentManager::may_lose_data(const Entry& entry)
{
    if (!entry.context->open_save_handler())
        return true;
    const QScopedValueRollback<bool> busy(mBusy, true);
    return entry.context->window()->file_menu()->check_modified();
}

void ComponentManager::run_unload(Entry& entry)
{
    const QScopedValueRollback<bool> busy(mBusy, true);
    entry.about.state = State::Unloading;
    tell(&ComponentTracker::component_unloading, entry);
    entry.context->end();
    entry.context.reset();
    set_component_loaded(entry.about.name, false);
    std::erase(mLoaded, &entry);
    entry.about.state = State::Unloaded;
    tell_names_changed();
    tell(&ComponentTracker::component_unloaded, entry);
}

void ComponentManager::unload_all()
{
    mWaiting.clear();
    mDone = nullptr;
    mTurns = std::make_unique<QObject>();
    while (!mLoaded.empty())
        run_unload(*mLoaded.back());
}

void ComponentManager::report(const Entry& entry, const QString& text) const
{
    if (mReport)
        mReport(u"ERROR: component \"%1\" (%2): %3\n"_s.arg(entry.about.name, entry.about.file, text));
}

void ComponentManager::tell(void (ComponentTracker::*step)(const char*), const Entry& entry) const
{
    try {
        HostMediator::instance().tell_trackers(step, entry.about.name);
    } catch (...) {
        report(entry, u"a tracker failed: "_s + caught());
    }
}

void ComponentManager::tell_names_changed() const
{
    CommandEntities& entities = mInterpreter.registry().entities();
    entities.tell_changed(loaded_component);
    entities.tell_changed(other_component);
}

} // namespace fennar
