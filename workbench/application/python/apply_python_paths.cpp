// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/python/apply_python_paths.h"

#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "workbench/application/python/python_literal.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** What is wrong with a directory, to stand behind its name; empty if nothing is. */
QString fault(const QString& directory)
{
    if (directory.contains(QChar::Null) || QDir::isRelativePath(directory))
        return u"is not a whole path, which begins with \"/\""_s;
    const QFileInfo info(directory);
    if (!info.exists())
        return directory.contains(u':') ? u"does not exist; several directories are parted by \";\""_s
                                        : u"does not exist"_s;
    if (!info.isDir())
        return u"is no directory"_s;
    return info.isReadable() && info.isExecutable() ? QString() : u"cannot be read"_s;
}

} // namespace

QStringList split_python_paths(const QString& paths)
{
    QStringList directories;
    for (const QString& part : paths.split(u';')) {
        if (const QString directory = part.trimmed(); !directory.isEmpty())
            directories << directory;
    }
    return directories;
}

QStringList apply_python_paths(FennarPythonInterpreter* python)
{
    const QSettings settings;
    // Asked last: it starts a Python that is not needed otherwise.
    if (!read_setting(settings, settings_keys::use_python_paths, false) || !python ||
        !python->IsInitialized())
        return {};
    QStringList errors;
    const QString paths = read_setting(settings, settings_keys::python_paths, QString());
    for (const QString& directory : split_python_paths(paths)) {
        QString wrong = fault(directory);
        if (wrong.isEmpty()) {
            // At the end, so that nothing there hides a module of Python itself. Leaves no name behind.
            const QString code =
                u"(lambda path, new: new in path or path.append(new))(__import__('sys').path, %1)"_s.arg(
                    python_literal(QDir::cleanPath(directory)));
            if (python->Run_SimpleString(code.toUtf8().constData()) != 0)
                wrong = u"is not accepted"_s;
        }
        if (!wrong.isEmpty())
            errors << u"ERROR: the Python path \"%1\" %2.\n"_s.arg(directory, wrong);
    }
    return errors;
}

} // namespace fennar
