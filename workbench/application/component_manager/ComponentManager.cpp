// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/component_manager/ComponentManager.h"

#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "workbench/application/component_manager/SharedObject.h"
#include "workbench/application/component_manager/component_commands.h"
#include "workbench/host/navigation/NavigationComponents.h"
#include "workbench/sdk/component/component.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSettings>
#include <QTimer>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto path_key = u"/fennar/components/path"_s;
const auto off_key = u"/fennar/components/off"_s;
const auto crashed_key = u"/fennar/components/crashed"_s;
constexpr auto path_variable = "FENNAR_COMPONENT_PATH";

/** How long the start waits for a command that runs before it looks again. */
constexpr auto command_patience = 50ms;

/** Owner marks that are not for components. */
bool is_reserved(const QString& name)
{
    static const QStringList reserved{u"framework"_s, u"fennari19"_s, u"workbench"_s,
                                      u"ot_section_separator"_s};
    return reserved.contains(name);
}

/** Where components lie beside the executable: installed, or in the tree it was built in. */
QString default_directory()
{
    const QString program = QCoreApplication::applicationDirPath();
    const QString installed = program + u"/components"_s;
    const QString built = QDir::cleanPath(program + u"/../lib/components"_s);
    return !QFileInfo::exists(installed) && QFileInfo::exists(built) ? built : installed;
}

QString name_of_file(const QString& file)
{
    const QString name = QFileInfo(file).completeBaseName();
    return name.startsWith(u"lib"_s) ? name.sliced(3) : name;
}

bool is_name(const QString& name)
{
    static const QRegularExpression pattern(u"\\A[a-z][a-z0-9_-]*\\z"_s);
    return pattern.match(name).hasMatch();
}

bool is_stored(const QString& key, const QString& value)
{
    return QSettings().value(key).toStringList().contains(value);
}

void store(const QString& key, const QString& value, bool contained)
{
    QSettings settings;
    QStringList values = settings.value(key).toStringList();
    if (values.contains(value) == contained)
        return;
    if (contained)
        values << value;
    else
        values.removeAll(value);
    if (values.isEmpty())
        settings.remove(key);
    else
        settings.setValue(key, values);
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

/** Whether there is a dialog or menu that the user has to close first. */
bool blocks_window()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) &&
           (QApplication::activeModalWidget() || QApplication::activePopupWidget());
}

QString state_word(ComponentManager::State state)
{
    switch (state) {
    case ComponentManager::State::Unloaded:
        return u"unloaded"_s;
    case ComponentManager::State::Loading:
        return u"loading"_s;
    case ComponentManager::State::Loaded:
        return u"loaded"_s;
    case ComponentManager::State::Unloading:
        return u"unloading"_s;
    }
    return {};
}

} // namespace

struct ComponentManager::Entry
{
    Component about;
    std::unique_ptr<SharedObject> object;
    const FennarComponent* record = nullptr;
    /** What the file was when it was mapped. */
    QDateTime file_time;
    qint64 file_size = 0;
    ComponentTraces traces;
};

ComponentManager::ComponentManager(CommandInterpreter& interpreter, const QString& notes)
    : mInterpreter(interpreter), mMark(notes), mTurns(std::make_unique<QObject>())
{
    const QStringList crashed = mMark.take_crashed();
    for (const QString& file : crashed)
        store(crashed_key, file, true);
    HostMediator::instance().set_component_source(this);
}

ComponentManager::~ComponentManager()
{
    unload_all();
    HostMediator::instance().set_component_source(nullptr);
    // Code that has run stays, see the class comment.
}

QString ComponentManager::component_directory() const
{
    return default_directory();
}

QString ComponentManager::component_path() const
{
    if (qEnvironmentVariableIsSet(path_variable))
        return qEnvironmentVariable(path_variable);
    return QSettings().value(path_key, default_directory()).toString();
}

void ComponentManager::set_component_path(const QString& path)
{
    if (path == component_path())
        return;
    if (qEnvironmentVariableIsSet(path_variable)) {
        qputenv(path_variable, path.toUtf8());
        return;
    }
    // The default is not stored, so that it follows the program when that is moved.
    QSettings settings;
    if (path == default_directory())
        settings.remove(path_key);
    else
        settings.setValue(path_key, path);
}

void ComponentManager::search()
{
    std::vector<std::unique_ptr<Entry>> known = std::exchange(mEntries, {});
    const QStringList directories = component_path().split(u';', Qt::SkipEmptyParts);
    const auto keep = [&](const QString& file) {
        const auto found = std::find_if(known.begin(), known.end(), [&](const auto& entry) {
            return entry && entry->about.file == file;
        });
        if (found != known.end())
            mEntries.push_back(std::move(*found));
        else
            entry_of_file(file);
    };
    for (const QString& directory : directories) {
        const QFileInfoList files = QDir(directory).entryInfoList({u"*.so"_s}, QDir::Files, QDir::Name);
        for (const QFileInfo& file : files) {
            const QString path = file.canonicalFilePath();
            const bool seen = std::any_of(mEntries.begin(), mEntries.end(),
                                          [&](const auto& entry) { return entry->about.file == path; });
            if (!seen && !path.isEmpty())
                keep(path);
        }
    }
    // Whatever was mapped is known for good.
    for (auto& entry : known) {
        if (entry && (entry->object || entry->about.state != State::Unloaded))
            mEntries.push_back(std::move(entry));
    }
}

ComponentManager::Entry& ComponentManager::entry_of_file(const QString& file)
{
    const auto found = std::find_if(mEntries.begin(), mEntries.end(),
                                    [&](const auto& entry) { return entry->about.file == file; });
    if (found != mEntries.end())
        return **found;
    auto entry = std::make_unique<Entry>();
    entry->about.file = file;
    entry->about.name = name_of_file(file);
    mEntries.push_back(std::move(entry));
    return *mEntries.back();
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

std::vector<ComponentManager::Component> ComponentManager::components()
{
    if (!mBusy)
        search();
    std::vector<Component> result;
    for (const auto& entry : mEntries) {
        Component about = entry->about;
        about.off = is_stored(off_key, about.name);
        about.crashed = is_stored(crashed_key, about.file);
        result.push_back(about);
    }
    return result;
}

std::vector<ComponentRecord> ComponentManager::component_records()
{
    std::vector<ComponentRecord> records;
    for (const Component& component : components())
        records.push_back(
            {component.name, component.version, component.file, state_word(component.state), 0});
    return records;
}

void ComponentManager::start(const std::function<void()>& done)
{
    search();
    mWaiting.clear();
    for (const auto& entry : mEntries)
        mWaiting << entry->about.file;
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
    Entry& entry = entry_of_file(mWaiting.takeFirst());
    if (is_wanted(entry))
        load_entry(entry, false);
    QTimer::singleShot(0, mTurns.get(), [this] { load_next(); });
}

void ComponentManager::load_all()
{
    search();
    QStringList files;
    for (const auto& entry : mEntries)
        files << entry->about.file;
    for (const QString& file : std::as_const(files)) {
        Entry& entry = entry_of_file(file);
        if (is_wanted(entry))
            load_entry(entry, false);
    }
}

bool ComponentManager::is_wanted(Entry& entry)
{
    if (entry.about.state != State::Unloaded || is_stored(off_key, entry.about.name))
        return false;
    if (!is_stored(crashed_key, entry.about.file))
        return true;
    entry.about.refusal =
        u"left out, since the program ended while it was being loaded; \"load %1\" turns it "
        "on again"_s.arg(entry.about.name);
    report(entry, entry.about.refusal);
    return false;
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
        store(crashed_key, entry.about.file, false);
    mBusy = true;
    const auto end = qScopeGuard([this] {
        mMark.end();
        mBusy = false;
    });
    if (!mMark.begin(entry.about.file) && !std::exchange(mToldOfNotes, true) && mReport)
        mReport(u"ERROR: notes on components that are being loaded cannot be written in \"%1\"; the next "
                "start would not know which one has crashed\n"_s.arg(mMark.directory()));
    entry.about.refusal = open(entry);
    // The name in the file may be another one than the file's.
    if (entry.about.refusal.isEmpty() && !asked_for && is_stored(off_key, entry.about.name))
        return {};
    if (entry.about.refusal.isEmpty())
        entry.about.refusal = run_load(entry);
    if (entry.about.refusal.isEmpty()) {
        if (asked_for)
            remember_off(entry.about.name, false);
    } else if (!asked_for) {
        report(entry, u"not loaded: "_s + entry.about.refusal);
    }
    return entry.about.refusal;
}

QString ComponentManager::open(Entry& entry)
{
    const QFileInfo file(entry.about.file);
    if (entry.object) {
        if (file.lastModified() != entry.file_time || file.size() != entry.file_size)
            return u"its file has changed since it was loaded first; the program must be started anew"_s;
        return name_conflict(entry, entry.about.name);
    }
    auto object = std::make_unique<SharedObject>(entry.about.file);
    if (!object->is_open())
        return u"it is no shared object that can be loaded: "_s + object->error();
    const auto function = reinterpret_cast<FennarComponentEntry>(object->find("fennar_component"));
    if (!function)
        return u"it has no function fennar_component"_s;
    const FennarComponent* record = nullptr;
    try {
        record = function();
    } catch (...) {
        return u"fennar_component failed: "_s + caught();
    }
    if (QString refusal = look_into(entry, record); !refusal.isEmpty())
        return refusal;
    entry.about.name = QString::fromUtf8(record->name);
    entry.about.version = QString::fromUtf8(record->version);
    entry.record = record;
    entry.object = std::move(object);
    entry.object->keep();
    entry.file_time = file.lastModified();
    entry.file_size = file.size();
    return {};
}

QString ComponentManager::look_into(const Entry& entry, const FennarComponent* record) const
{
    if (!record)
        return u"fennar_component returned nothing"_s;
    // Nothing else may be looked at before this: another interface may have other fields.
    if (record->interface_version != FENNAR_COMPONENT_INTERFACE)
        return u"it was made for version %1 of the component interface; this program has version %2"_s
            .arg(record->interface_version)
            .arg(FENNAR_COMPONENT_INTERFACE);
    const QString workbench = QString::fromUtf8(record->workbench_version);
    if (workbench != QStringLiteral(FENNAR_VERSION))
        return u"it was made for version %1 of the workbench; this is version %2"_s.arg(
            workbench.isEmpty() ? u"(none)"_s : workbench, QStringLiteral(FENNAR_VERSION));
    const QString name = QString::fromUtf8(record->name);
    if (!is_name(name))
        return u"\"%1\" is no name for a component: a lower-case letter, then lower-case letters, digits, "
               u"\"_\" "
               "and \"-\""_s.arg(name);
    if (!record->load || !record->unload)
        return u"it has no function to load or to unload it"_s;
    return name_conflict(entry, name);
}

QString ComponentManager::name_conflict(const Entry& entry, const QString& name) const
{
    for (const Entry* other : mLoaded) {
        if (other != &entry && other->about.name == name)
            return u"the name \"%1\" is taken by %2"_s.arg(name, other->about.file);
    }
    const CommandRegistry& registry = mInterpreter.registry();
    const QStringList commands = registry.names();
    const bool owns_command = std::any_of(commands.begin(), commands.end(), [&](const QString& command) {
        return registry.find(command)->owner == name;
    });
    if (owns_command || is_reserved(name))
        return u"the name \"%1\" is taken by the program"_s.arg(name);
    return {};
}

QString ComponentManager::run_load(Entry& entry)
{
    CommandRegistry& registry = mInterpreter.registry();
    const auto* code = reinterpret_cast<const void*>(entry.record->load);
    entry.about.state = State::Loading;
    tell(&ComponentTracker::component_loading, entry);
    const Surroundings before = Surroundings::now(registry);
    QString failure;
    try {
        entry.record->load();
    } catch (...) {
        failure = u"it failed: "_s + caught();
    }
    entry.traces = ComponentTraces(entry.about.name, before, code, registry);
    if (!failure.isEmpty()) {
        // It had no chance to take these away itself, and nobody needs to hear of them.
        entry.traces.clean_up();
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
    if (mInterpreter.is_running(name))
        return u"a command of the component \"%1\" is running"_s.arg(name);
    if (blocks_window())
        return u"a dialog or menu is open, which may be that of the component \"%1\"; close it first"_s.arg(
            name);
    if (!may_lose_data(*entry))
        return u"the component \"%1\" holds unsaved data"_s.arg(name);
    run_unload(*entry);
    remember_off(name, true);
    return {};
}

bool ComponentManager::may_lose_data(const Entry& entry)
{
    Ostrel* window = Ostrel::instance();
    const OpenSaveHandler* handler = window ? window->file_menu()->get_open_save_handler() : nullptr;
    if (!handler || !SharedObject::has_class_of(handler, reinterpret_cast<const void*>(entry.record->load)))
        return true;
    mBusy = true;
    const auto end = qScopeGuard([this] { mBusy = false; });
    return window->file_menu()->check_modified();
}

void ComponentManager::run_unload(Entry& entry)
{
    mBusy = true;
    const auto end = qScopeGuard([this] { mBusy = false; });
    entry.about.state = State::Unloading;
    tell(&ComponentTracker::component_unloading, entry);
    entry.traces.look_before_unload();
    try {
        entry.record->unload();
    } catch (...) {
        report(entry, u"failed to unload: "_s + caught());
    }
    const QStringList left = entry.traces.clean_up();
    if (!left.isEmpty())
        report(entry, u"left behind, and taken away now: "_s + left.join(u", "_s));
    entry.traces = {};
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

void ComponentManager::remember_off(const QString& name, bool off) const
{
    if (mRemember)
        store(off_key, name, off);
}
