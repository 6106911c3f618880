// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QMap>
#include <QStringList>

/** @file
 * The ways out of the shell, read from its sources, so that none is forgotten here. Names are as
 * Stage::moment() has them.
 */

/** The classes that the shell's headers export. */
QStringList exported_classes();
/** The signals of those of them that are known here; one that is not stands in the list as "CLASS?". */
QStringList signals_of_exported_classes();
/** Signals of Qt's that components follow, behind which the shell goes on. */
QStringList signals_of_base_classes();
/** The virtual functions of the classes that components derive from for the shell or host to call. */
QStringList virtuals_of_handlers();
/** What the shell calls in the host, as the recording host knows it. */
QStringList host_calls();
/** How many places of each source of the shell open a dialog or menu and wait for the user. */
QMap<QString, int> places_that_wait();
/** The ways that these places are, by the source: the name of a flow, and the way in it. */
QMultiMap<QString, QString> waits_for_the_user();
