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
constexpr auto path_variable = "FENNAR_COMPONENT_PATH";

/** Empty if it is the executable's. */
QString program_directory;

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

bool KeptList::contains(const QString& text) const
{
    return QSettings().value(key).toStringList().contains(text);
}

void KeptList::set(const QString& text, bool contained) const
{
    QSettings settings;
    QStringList texts = settings.value(key).toStringList();
    if (texts.contains(text) == contained)
        return;
    if (contained)
        texts << text;
    else
        texts.removeAll(text);
    if (texts.isEmpty())
        settings.remove(key);
    else
        settings.setValue(key, texts);
}

} // namespace fennar
