// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QStringView>

/**
 * How many characters at the front of @p text need not be inserted into a document that keeps its last
 * @p max_blocks blocks, because the insertion would drop them at once.
 *
 * The rest holds one line end less than there are blocks to keep. With whatever stands behind the place of
 * insertion that fills the document, so nothing in front of it stays either, not even a line that the text
 * continues. Only line feeds count as line ends; if there are others, the document drops what is left over.
 *
 * @param max_blocks  as QTextDocument::maximumBlockCount(): 0 or less means no limit.
 */
qsizetype dropped_at_once(QStringView text, int max_blocks);
