// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/component_manager/ComponentMetadata.h"

#include "workbench/sdk/component/Component.h"

#include <QJsonObject>
#include <QPluginLoader>
#include <QRegularExpression>
#include <QVariant>
#include <QVersionNumber>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** Owner marks that are not for components. */
bool is_reserved(const QString& name)
{
    static const QStringList reserved{u"framework"_s, u"fennari19"_s, u"workbench"_s,
                                      u"ot_section_separator"_s};
    return reserved.contains(name);
}

bool is_name(const QString& name)
{
    static const QRegularExpression pattern(u"\\A[a-z][a-z0-9_-]*\\z"_s);
    return pattern.match(name).hasMatch();
}

/** Why the file cannot be loaded, by what of it Qt has read. */
QString find_fault(const QJsonObject& all, const QString& error)
{
    if (all.isEmpty())
        return u"not a component: "_s + error.simplified();
    const QString interface = all.value("IID"_L1).toString();
    if (interface != QStringLiteral(FENNAR_COMPONENT_INTERFACE))
        return u"not a component, but a plugin of the kind \"%1\""_s.arg(interface);
    const QJsonObject own = all.value("MetaData"_L1).toObject();
    const QString kit = own.value("kit"_L1).toString();
    const QString present = QStringLiteral(FENNAR_SDK_VERSION);
    if (!ComponentMetadata::is_kit_good_for(present, kit))
        return u"it was made with version %1 of the component kit; this program has version %2"_s.arg(
            kit.isEmpty() ? u"(none)"_s : kit, present);
    const QString name = own.value("name"_L1).toString();
    if (!is_name(name))
        return u"\"%1\" is not a valid component name: a lower-case letter, then lower-case letters, digits, "
               u"\"_\" "
               "and \"-\""_s.arg(name);
    if (is_reserved(name))
        return u"the name \"%1\" is taken by the program"_s.arg(name);
    return {};
}

} // namespace

bool ComponentMetadata::is_kit_good_for(const QString& present, const QString& made_with)
{
    const QVersionNumber has = QVersionNumber::fromString(present);
    const QVersionNumber needs = QVersionNumber::fromString(made_with);
    if (has.segmentCount() < 2 || needs.segmentCount() < 2 || has.majorVersion() != needs.majorVersion())
        return false;
    return has.majorVersion() == 0 ? has.minorVersion() == needs.minorVersion()
                                   : has.minorVersion() >= needs.minorVersion();
}

ComponentMetadata ComponentMetadata::read(const QString& file)
{
    const QPluginLoader plugin(file);
    const QJsonObject all = plugin.metaData();
    const QJsonObject own = all.value("MetaData"_L1).toObject();
    const QString name = own.value("name"_L1).toString();
    return {.fault = find_fault(all, plugin.errorString()),
            .name = is_name(name) && !is_reserved(name) ? name : QString(),
            .version = own.value("version"_L1).toString(),
            .needs = own.value("requires"_L1).toVariant().toStringList(),
            .commands = own.value("commands"_L1).toVariant().toStringList()};
}

} // namespace fennar
