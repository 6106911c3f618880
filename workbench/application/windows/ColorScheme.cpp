// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/ColorScheme.h"

#include "frame/Ostrel.h"
#include "menus/OstrelViewMenu.h"
#include "workbench/application/windows/scheme_palette.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/CommandSink.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QSettings>
#include <QStyleHints>
#include <QStyleOption>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

using Scheme = ColorScheme::Scheme;

constexpr auto scheme_key = "/fennar/scheme"_L1;
/** In the order of the schemes. */
constexpr std::array<QLatin1StringView, 3> names = {"system"_L1, "light"_L1, "dark"_L1};
/** The owner mark of the entries in the menu. */
constexpr auto owner = "scheme";

QLatin1StringView name_of(Scheme scheme)
{
    return names[std::size_t(scheme)];
}

std::optional<Scheme> scheme_of(const QString& name)
{
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? std::nullopt : std::optional(Scheme(found - names.begin()));
}

/**
 * Fusion with two changes for dark backgrounds. Check boxes and radio buttons get a lighter outline, since
 * Fusion's is darker than the background. The sign that a toolbar has more buttons is nearly black in Fusion;
 * here it has the color that the window's text has when the style is set.
 */
class SchemeStyle : public QProxyStyle
{
public:
    SchemeStyle() : QProxyStyle(u"fusion"_s) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool box = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
        const bool round = element == PE_IndicatorRadioButton;
        const QPalette& palette = option->palette;
        if ((!box && !round) ||
            palette.color(QPalette::Window).lightness() > palette.color(QPalette::WindowText).lightness())
            return;
        painter->save();
        painter->setPen(palette.color(QPalette::PlaceholderText));
        painter->setBrush(Qt::NoBrush);
        const QRectF rect = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        if (round) {
            painter->setRenderHint(QPainter::Antialiasing);
            painter->drawEllipse(rect);
        } else {
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        }
        painter->restore();
    }

    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override
    {
        const QIcon plain = QProxyStyle::standardIcon(icon, option, widget);
        if (icon != SP_ToolBarHorizontalExtensionButton && icon != SP_ToolBarVerticalExtensionButton)
            return plain;
        QIcon colored;
        const QList<QSize> sizes = plain.availableSizes();
        for (const QSize& size : sizes) {
            QPixmap pixmap = plain.pixmap(size, 1.0);
            QPainter painter(&pixmap);
            painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
            painter.fillRect(pixmap.rect(), QApplication::palette().color(QPalette::WindowText));
            painter.end();
            colored.addPixmap(pixmap);
        }
        return colored;
    }
};

/** The buttons of toolbars that lack room take their sign from the style once only. */
void renew_extension_signs()
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* widget : widgets) {
        auto* button = qobject_cast<QToolButton*>(widget);
        const auto* bar = button ? qobject_cast<QToolBar*>(button->parentWidget()) : nullptr;
        if (!bar || button->objectName() != "qt_toolbar_ext_button"_L1)
            continue;
        button->setIcon(bar->style()->standardIcon(bar->orientation() == Qt::Horizontal
                                                       ? QStyle::SP_ToolBarHorizontalExtensionButton
                                                       : QStyle::SP_ToolBarVerticalExtensionButton));
    }
}

/** The name to set the application's style by; that of a style in front of another is that of the other. */
QString name_of_style()
{
    const auto* const proxy = qobject_cast<const QProxyStyle*>(QApplication::style());
    return (proxy ? proxy->baseStyle() : QApplication::style())->name();
}

} // namespace

ColorScheme::ColorScheme(CommandRegistry& registry) : mRegistry(registry)
{
    const QStringList choices(names.begin(), names.end());
    registry.add(
        {.name = u"scheme"_s,
         .summary = u"Tells or sets the colors of the windows."_s,
         .help = u"system  those of the desktop\n"
                 "light   dark text on a light ground\n"
                 "dark    light text on a dark ground\n"
                 "The choice is kept for the next start, unless \"once\" stands behind it."_s,
         .owner = u"workbench"_s,
         .perform =
             [this](CommandCall& call, const CommandArguments& arguments) {
                 const auto chosen = scheme_of(arguments.text("SCHEME"_L1));
                 if (!chosen)
                     call.print(u"scheme %1\n"_s.arg(name_of(mScheme)));
                 else if (qobject_cast<QApplication*>(QCoreApplication::instance()))
                     set_scheme(*chosen, !arguments.has("TIME"_L1));
                 else
                     call.print(u"There are no windows; their colors stay as they are.\n"_s);
             },
         .forms = {
             {.clauses = {optional_value({.name = u"SCHEME"_s,
                                          .kind = CommandParameter::Kind::Choice,
                                          .label = QT_TRANSLATE_NOOP("CommandParameter", "Colors"),
                                          .choices = choices}),
                          optional_value({.name = u"TIME"_s,
                                          .kind = CommandParameter::Kind::Choice,
                                          .label = QT_TRANSLATE_NOOP("CommandParameter", "For how long"),
                                          .choices = {u"once"_s}})}}}});
}

ColorScheme::~ColorScheme()
{
    mRegistry.remove(u"scheme"_s);
    if (mScheme != Scheme::System)
        set_scheme(Scheme::System, false);
}

void ColorScheme::restore()
{
    const auto kept = scheme_of(QSettings().value(scheme_key).toString());
    set_scheme(kept.value_or(Scheme::System), false);
}

void ColorScheme::set_scheme(Scheme scheme, bool keep)
{
    if (keep)
        QSettings().setValue(scheme_key, QString(name_of(scheme)));
    if (scheme == mScheme)
        return;
    mScheme = scheme;
    const bool own = scheme != Scheme::System;
    if (own && mSystemStyle.isEmpty())
        mSystemStyle = name_of_style();
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QGuiApplication::styleHints()->setColorScheme(own ? scheme == Scheme::Dark ? Qt::ColorScheme::Dark
                                                                               : Qt::ColorScheme::Light
                                                      : Qt::ColorScheme::Unknown);
#endif
    QApplication::setPalette(own ? scheme_palette(scheme == Scheme::Dark) : QPalette());
    // Behind the palette, by which a style makes its icons.
    if (own)
        QApplication::setStyle(new SchemeStyle);
    else
        QApplication::setStyle(std::exchange(mSystemStyle, {}));
    renew_extension_signs();
    update_actions();
}

void ColorScheme::add_to_menu(Ostrel* window)
{
    const std::array<QString, 3> texts = {tr("S&ystem Colors"), tr("Li&ght Colors"), tr("&Dark Colors")};
    std::vector<QAction*> actions = {nullptr};
    auto* group = new QActionGroup(this); // menus show that one of them holds
    for (std::size_t i = 0; i < texts.size(); ++i) {
        auto* action = new QAction(texts[i], group);
        action->setObjectName(u"scheme_"_s + names[i]);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, i] {
            send_command(u"scheme "_s + names[i]);
            update_actions(); // the command may not have run
        });
        mActions[i] = action;
        actions.push_back(action);
    }
    window->view_menu()->add_items(actions, owner);
    update_actions();
}

void ColorScheme::remove_from_menu(Ostrel* window)
{
    window->view_menu()->remove_component_items(owner);
    if (mActions[0])
        delete mActions[0]->actionGroup(); // with all of them
    mActions = {};
}

void ColorScheme::update_actions()
{
    for (std::size_t i = 0; i < mActions.size(); ++i) {
        if (mActions[i])
            mActions[i]->setChecked(mScheme == Scheme(i));
    }
}

} // namespace fennar
