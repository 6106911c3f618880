// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/python/python_actions.h"

#include "menus/PyAction.h"
#include "menus/PyOstrel.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/sdk/component/shell_access.h"

#include <QAction>
#include <QPointer>
#include <pybind11/pybind11.h>

#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace py = pybind11;

namespace fennar {

namespace {

/** What must not outlive Python. Touched with Python's lock held. */
struct Kept
{
    /** The actions in the menus, under their components' names. */
    std::map<std::string, std::vector<py::object>> entries;
    /** Actions that wait for the event loop to be deleted. */
    std::vector<QPointer<PyAction>> dropped;
    /** Python ends, and no event loop will come. */
    bool ended = false;
};

Kept& kept()
{
    // Never destroyed: nothing of Python's may be touched when the process ends.
    static Kept* const kept = new Kept;
    return *kept;
}

/** Deletes an action that no script knows any more. Python calls this wherever it collects its garbage. */
struct DropAction
{
    void operator()(PyAction* action) const
    {
        // A copy of the process has a copy of the window, which shares the original's place on the screen.
        if (!PythonRuntime::in_application())
            return;
        if (kept().ended) {
            delete action;
            return;
        }
        // Later, since it may be the action whose method is running, and this may be another thread.
        std::erase(kept().dropped, nullptr);
        kept().dropped.emplace_back(action);
        action->deleteLater();
    }
};

using ActionClass = py::class_<PyAction, std::unique_ptr<PyAction, DropAction>>;

/** The UTF-8 of a Python string, which holds it for as long as it lives. */
const char* utf8(const py::str& text)
{
    Py_ssize_t size = 0;
    const char* const bytes = PyUnicode_AsUTF8AndSize(text.ptr(), &size);
    if (!bytes)
        throw py::error_already_set();
    if (std::char_traits<char>::length(bytes) != static_cast<std::size_t>(size))
        throw py::value_error("embedded null character");
    return bytes;
}

/** A function of PyAction that takes a text. */
template <void (PyAction::*set)(const char*)>
void set_text(PyAction& action, const py::str& text)
{
    PythonRuntime::require_gui_thread("fennar.PyAction");
    (action.*set)(utf8(text));
}

/** A function of PyAction that takes a flag. */
template <void (PyAction::*set)(bool)>
void set_flag(PyAction& action, bool on)
{
    PythonRuntime::require_gui_thread("fennar.PyAction");
    (action.*set)(on);
}

/** Reads a text from the action itself: what PyAction returns is void already. Empty without a window. */
template <QString (QAction::*get)() const>
py::str get_text(const PyAction& action)
{
    PythonRuntime::require_gui_thread("fennar.PyAction");
    const QAction* const shown = action.getAction();
    return py::str(shown ? (shown->*get)().toStdString() : std::string());
}

template <bool (PyAction::*get)() const>
bool get_flag(const PyAction& action)
{
    PythonRuntime::require_gui_thread("fennar.PyAction");
    return (action.*get)();
}

std::unique_ptr<PyAction, DropAction> make_action()
{
    PythonRuntime::require_gui_thread("fennar.PyAction");
    if (!PyOstrel::is_loaded())
        throw std::runtime_error("fennar.PyAction can only be made while there is a main window");
    return std::unique_ptr<PyAction, DropAction>(new PyAction);
}

void add_to_menu(const py::str& menu, const py::iterable& actions, const py::str& component)
{
    PythonRuntime::require_gui_thread("fennar.add_to_menu()");
    const char* const title = utf8(menu);
    const char* const owner = utf8(component);
    std::vector<py::object> objects;
    std::vector<PyAction*> entries;
    for (const py::handle element : actions) {
        if (!py::isinstance<PyAction>(element))
            throw py::type_error("add_to_menu() takes a list of PyAction");
        auto* const action = element.cast<PyAction*>();
        // The menus take a missing action for a separator.
        if (PyOstrel::is_loaded() && !action->getAction())
            throw std::runtime_error("the main window that this PyAction was made for is gone");
        objects.push_back(py::reinterpret_borrow<py::object>(element));
        entries.push_back(action);
    }
    if (!PyOstrel::is_loaded())
        return;
    // A script names the window's menus as they are called in English; "&Geometry" and the like stand for
    // themselves.
    PyOstrel::add_to_menu(qUtf8Printable(main_menu_title(title)), entries, owner);
    std::vector<py::object>& keeper = kept().entries[owner];
    keeper.insert(keeper.end(), objects.begin(), objects.end());
}

void remove_menu_items(const py::str& component)
{
    PythonRuntime::require_gui_thread("fennar.remove_menu_items()");
    const char* const owner = utf8(component);
    PyOstrel::remove_menu_items(owner);
    // Taken out before they go: what goes with them may call back.
    const auto removed = kept().entries.extract(owner);
}

/** Takes all entries of scripts out of the menus. Python calls this when it ends. */
void let_go()
{
    auto entries = std::exchange(kept().entries, {});
    for (const auto& [component, actions] : entries)
        PyOstrel::remove_menu_items(component.c_str());
    entries.clear();
    kept().ended = true;
    for (const QPointer<PyAction>& action : std::exchange(kept().dropped, {}))
        delete action;
}

} // namespace

void add_python_actions(PyObject* module)
{
    auto fennar = py::reinterpret_borrow<py::module_>(module);
    py::options options;
    options.disable_function_signatures();

    ActionClass(fennar, "PyAction",
                "PyAction()\n\n"
                "An entry for add_to_menu(). Raises RuntimeError while there is no main window.\n"
                "The methods are named by their text, as 'hello' for a function hello of yours.")
        .def(py::init(&make_action))
        .def("setText", &set_text<&PyAction::setText>,
             "Sets the text; & stands before the key that selects it.")
        .def("setMenuText", &set_text<&PyAction::setMenuText>, "The same as setText().")
        .def("setToolTip", &set_text<&PyAction::setToolTip>, "Sets the tool tip.")
        .def("setStatusTip", &set_text<&PyAction::setStatusTip>, "Sets what the status bar shows.")
        .def("setWhatsThis", &set_text<&PyAction::setWhatsThis>, "Sets the help text.")
        .def("getText", &get_text<&QAction::text>, "The text.")
        .def("getMenuText", &get_text<&QAction::text>, "The same as getText().")
        .def("getToolTip", &get_text<&QAction::toolTip>, "The tool tip; the text if none was set.")
        .def("getStatusTip", &get_text<&QAction::statusTip>, "What the status bar shows.")
        .def("getWhatsThis", &get_text<&QAction::whatsThis>, "The help text.")
        .def("setToggleAction", &set_flag<&PyAction::setToggleAction>, "Gives the entry a check mark.")
        .def("setOn", &set_flag<&PyAction::setOn>, "Sets the check mark, which calls the toggle method.")
        .def("setEnabled", &set_flag<&PyAction::setEnabled>, "Whether the entry can be chosen.")
        .def("setVisible", &set_flag<&PyAction::setVisible>, "Whether the entry is shown.")
        .def("hasToggleAction", &get_flag<&PyAction::hasToggleAction>, "Whether there is a check mark.")
        .def("isOn", &get_flag<&PyAction::isOn>, "Whether the check mark is set.")
        .def("isEnabled", &get_flag<&PyAction::isEnabled>, "Whether the entry can be chosen.")
        .def("isVisible", &get_flag<&PyAction::isVisible>, "Whether the entry is shown.")
        .def("setActivateMethod", &set_text<&PyAction::setActivateMethod>,
             "Sets what a click calls, as 'hello' for hello(). Empty for nothing.")
        .def("setToggleMethod", &set_text<&PyAction::setToggleMethod>,
             "Sets what a change of the check mark calls, as 'switch' for switch(1) and switch(0). Empty for "
             "nothing.");

    fennar.def(
        "is_loaded", [] { return PyOstrel::is_loaded(); }, "is_loaded()\n\nWhether there is a main window.");
    fennar.def("add_to_menu", &add_to_menu, py::arg("menu"), py::arg("actions"), py::arg("component"),
               "add_to_menu(menu, actions, component)\n\n"
               "Adds the actions, in order, to the menu with that title; a new title makes a new menu.\n"
               "component is a name of your choice, by which remove_menu_items() finds them.");
    fennar.def("remove_menu_items", &remove_menu_items, py::arg("component"),
               "remove_menu_items(component)\n\nRemoves what was added under that name.");
    py::module_::import("atexit").attr("register")(py::cpp_function(&let_go));
}

} // namespace fennar
