// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/component_manager/component_settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

const auto path_key = u"/fennar/components/path"_s;
const auto off_key = u"/fennar/components/off"_s;
const auto crashed_key = u"/fennar/components/crashed"_s;
constexpr auto path_variable = "FENNAR_COMPONENT_PATH";

/** Empty if it is the executable's. */
QString program_directory;

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

} // namespace

QString component_path()
{
    if (qEnvironmentVariableIsSet(path_variable))
        return qEnvironmentVariable(path_variable);
    return QSettings().value(path_key, default_component_directory()).toString();
}

void set_component_path(const QString& path)
{
    if (path == component_path())
        return;
    if (qEnvironmentVariableIsSet(path_variable)) {
        qputenv(path_variable, path.toUtf8());
        return;
    }
    // The default is not stored, so that it follows the program when that is moved.
    QSettings settings;
    if (path == default_component_directory())
        settings.remove(path_key);
    else
        settings.setValue(path_key, path);
}

QString default_component_directory()
{
    const QString program =
        program_directory.isEmpty() ? QCoreApplication::applicationDirPath() : program_directory;
    const QString installed = program + u"/components"_s;
    const QString built = QDir::cleanPath(program + u"/../lib/components"_s);
    return !QFileInfo::exists(installed) && QFileInfo::exists(built) ? built : installed;
}

void set_program_directory(const QString& directory)
{
    program_directory = directory;
}

bool is_component_off(const QString& name)
{
    return is_stored(off_key, name);
}

void set_component_off(const QString& name, bool off)
{
    store(off_key, name, off);
}

bool has_component_crashed(const QString& file)
{
    return is_stored(crashed_key, file);
}

void set_component_crashed(const QString& file, bool crashed)
{
    store(crashed_key, file, crashed);
}

} // namespace fennar
