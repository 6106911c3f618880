// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/PythonConsole.h"

#include "workbench/host/fennar_python/PythonEntry.h"
#include "workbench/host/fennar_python/PythonRuntime.h"

namespace py = pybind11;

namespace fennar {

PythonConsole::Outcome PythonConsole::enter(const QString& line)
{
    QString text = line;
    text.remove(u'\r');
    if (text.endsWith(u'\n'))
        text.chop(1);
    Outcome outcome;
    bool failed = false;
    for (const QString& one : text.split(u'\n')) {
        outcome = enter_one(one);
        failed = failed || outcome.failed;
    }
    outcome.failed = failed;
    return outcome;
}

PythonConsole::Outcome PythonConsole::enter_one(const QString& line)
{
    const Outcome failure{false, QString(), true};
    if (!PythonRuntime::is_ready()) {
        reset();
        return failure;
    }
    const PythonEntry entry;
    const py::handle support(PythonState::get().support);
    try {
        mPending.append(line);
        const py::str source = to_python(mPending.join(u'\n'));
        const py::tuple compiled = support["compile_statement"](source, mCompilerFlags);
        const py::object code = compiled[0];
        if (code.is_none()) {
            return {true, to_qstring(py::str(support["next_indent"](source))), false};
        }
        reset();
        mCompilerFlags = compiled[1].cast<int>();
        return run_code(mNames.dictionary(), code) ? Outcome{} : failure;
    } catch (py::error_already_set& error) {
        reset();
        report(error, false);
        return failure;
    }
}

PythonConsole::Names PythonConsole::complete(const QString& line, qsizetype caret) const
{
    return complete(line, caret, mPending.join(u'\n'));
}

PythonConsole::Names PythonConsole::complete(const QString& line, qsizetype caret,
                                             const QString& before) const
{
    Names result{caret, {}, {}, {}};
    if (!PythonRuntime::running())
        return result;
    const PythonEntry entry;
    const py::handle support(PythonState::get().support);
    try {
        const py::tuple found = support["complete"](py::handle(mNames.dictionary()),
                                                    to_python(line.first(caret)), to_python(before));
        const py::str typed = found[0];
        result.start = caret - to_qstring(typed).size();
        for (const py::handle name : py::list(found[1]))
            result.names << to_qstring(py::reinterpret_borrow<py::str>(name));
        result.common = to_qstring(py::str(found[2]));
        result.hint = to_qstring(py::str(found[3]));
    } catch (const py::error_already_set&) {
        // A name space in which odd things lie is nothing to bother somebody with who types.
        result = {caret, {}, {}, {}};
    }
    return result;
}

} // namespace fennar
