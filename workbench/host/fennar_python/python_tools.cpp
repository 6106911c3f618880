// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/python_tools.h"

#include <QChar>
#include <QFile>

#include <stdexcept>

namespace py = pybind11;

namespace fennar {

namespace {

void replace_lone_surrogates(QString& text)
{
    if (text.isValidUtf16())
        return;
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size; ++i) {
        if (!text.at(i).isSurrogate())
            continue;
        if (text.at(i).isHighSurrogate() && i + 1 < size && text.at(i + 1).isLowSurrogate())
            ++i;
        else
            text[i] = QChar::ReplacementCharacter;
    }
}

} // namespace

QString to_qstring(const py::str& text)
{
    PyObject* const object = text.ptr();
    const qsizetype length = PyUnicode_GET_LENGTH(object);
    const void* const data = PyUnicode_DATA(object);
    QString result;
    switch (PyUnicode_KIND(object)) {
    case PyUnicode_1BYTE_KIND:
        return QString::fromLatin1(static_cast<const char*>(data), length);
    case PyUnicode_2BYTE_KIND:
        result = QString(static_cast<const QChar*>(data), length);
        break;
    default:
        result = QString::fromUcs4(static_cast<const char32_t*>(data), length);
        break;
    }
    replace_lone_surrogates(result);
    return result;
}

py::str to_python(const QString& text)
{
    int order = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? -1 : 1;
    PyObject* const result = PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(text.utf16()),
                                                   text.size() * 2, "surrogatepass", &order);
    if (!result)
        throw py::error_already_set();
    return py::reinterpret_steal<py::str>(result);
}

py::str resource_text(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("the library has no " + path.toStdString());
    return py::str(file.readAll().toStdString());
}

void run_resource(const QString& path, py::dict& names)
{
    const auto builtins = py::module_::import("builtins");
    names["__builtins__"] = builtins;
    names["__file__"] = "<fennar>";
    const py::object code = builtins.attr("compile")(resource_text(path), names["__file__"], "exec");
    builtins.attr("exec")(code, names);
}

} // namespace fennar
