// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A journal document as a widget: its name, its tab, the highlighted line and the strip of line numbers.

#include "document.h"
#include "journal/JournalEditor.h"
#include "journal/LineNumberArea.h"
#include "journal/color_scheme.h"
#include "support/TestCase.h"
#include "support/drops.h"
#include "support/windows.h"

#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/** Opens what the tests look at. */
class Document : public JournalDocument
{
public:
    using JournalDocument::JournalDocument;
    using QPlainTextEdit::blockBoundingGeometry;
    using QPlainTextEdit::contentOffset;
    using QPlainTextEdit::setViewportMargins;
    using QPlainTextEdit::viewportMargins;

    LineNumberArea* strip() const { return findChild<LineNumberArea*>(); }
};

QString numbered_lines(int count)
{
    QStringList text;
    for (int line = 0; line < count; ++line)
        text << u"line %1"_s.arg(line);
    return text.join(u'\n');
}

/** Counts the paint events of a widget and remembers the area of the last one. */
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }
    int count = 0;
    QRect area;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            ++count;
            area = static_cast<QPaintEvent*>(event)->rect();
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

class TstJournalDocument : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void has_the_name_it_was_given();
    void null_name_is_no_name();
    void starts_untitled_with_a_strip_and_a_highlighted_line();
    void shortcuts_reach_the_whole_window();
    void new_file_name_is_told_once();
    void change_from_and_to_no_name_is_told();
    void strip_is_as_wide_as_its_digits_data();
    void strip_is_as_wide_as_its_digits();
    void margin_follows_the_number_of_blocks();
    void strip_fills_the_left_of_the_document();
    void small_update_leaves_the_margin();
    void update_of_the_whole_view_sets_the_margin();
    void update_repaints_its_rows_of_the_strip();
    void scrolling_moves_the_strip();
    void strip_shows_black_numbers_on_light_gray_data();
    void strip_shows_black_numbers_on_light_gray();
    void strip_cuts_fractions_of_pixels();
    void strip_skips_hidden_lines();
    void strip_paints_only_where_it_is_asked();
    void strip_keeps_its_colors_in_dark_ones();
    void current_line_is_highlighted();
    void highlight_follows_the_cursor_without_its_selection();
    void read_only_document_has_no_highlight();
    void color_of_the_highlight_follows_the_color_scheme();
    void mark_on_the_tab_follows_the_modified_flag();
    void mark_replaces_one_that_is_there();
    void one_mark_goes_at_most();
    void document_outside_the_tabs_marks_none();
    void text_may_be_dropped_into_a_line_that_is_cut_off_data();
    void text_may_be_dropped_into_a_line_that_is_cut_off();
    void view_lower_than_a_line_takes_no_drop();
    void names_for_connections_are_as_promised();

private:
    /** The strip as it should look, painted by the rules from the places of the lines. */
    QImage expected_strip() const;

    std::unique_ptr<JournalEditor> mEditor;
    std::unique_ptr<QTabWidget> mTabs;
    Document* mDocument = nullptr;
};

void TstJournalDocument::set_up()
{
    mEditor = std::make_unique<JournalEditor>();
    mTabs = std::make_unique<QTabWidget>();
    mDocument = new Document(mEditor.get(), mTabs.get(), "JournalDocument");
    mTabs->addTab(mDocument, u"Untitled"_s);
    mTabs->resize(400, 300);
}

void TstJournalDocument::tear_down()
{
    mTabs.reset();
    mEditor.reset();
}

void TstJournalDocument::has_the_name_it_was_given()
{
    QCOMPARE(mDocument->objectName(), u"JournalDocument"_s);
    QCOMPARE(Document(mEditor.get(), mTabs.get(), "\u00E9").objectName(), u"\u00E9"_s);
}

void TstJournalDocument::null_name_is_no_name()
{
    QVERIFY(Document(mEditor.get(), mTabs.get(), nullptr).objectName().isEmpty());
}

void TstJournalDocument::starts_untitled_with_a_strip_and_a_highlighted_line()
{
    const Document document(mEditor.get(), mTabs.get(), "d");
    QCOMPARE(document.parentWidget(), mTabs.get());
    QVERIFY(document.file_name().isEmpty());
    QCOMPARE(document.findChildren<LineNumberArea*>().size(), 1);
    QCOMPARE(document.strip()->parent(), &document);
    QCOMPARE(document.viewportMargins(), QMargins(document.lineNumberAreaWidth(), 0, 0, 0));
    QCOMPARE(document.extraSelections().size(), 1);
}

void TstJournalDocument::shortcuts_reach_the_whole_window()
{
    const auto shortcuts = mDocument->findChildren<QShortcut*>(Qt::FindDirectChildrenOnly);
    QCOMPARE(shortcuts.size(), 2);
    QCOMPARE(shortcuts[0]->key(), QKeySequence(u"Ctrl+/"_s));
    QCOMPARE(shortcuts[1]->key(), QKeySequence(u"Ctrl+F5"_s));
    for (const QShortcut* shortcut : shortcuts)
        QCOMPARE(shortcut->context(), Qt::WindowShortcut);
}

void TstJournalDocument::new_file_name_is_told_once()
{
    const QSignalSpy changed(mDocument, &JournalDocument::fileNameChanged);
    mDocument->set_file_name(u"/tmp/a.jou"_s);
    mDocument->set_file_name(u"/tmp/a.jou"_s);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<JournalDocument*>(), mDocument);
    QCOMPARE(mDocument->file_name(), u"/tmp/a.jou"_s);
}

void TstJournalDocument::change_from_and_to_no_name_is_told()
{
    const QSignalSpy changed(mDocument, &JournalDocument::fileNameChanged);
    mDocument->set_file_name({});
    QCOMPARE(changed.count(), 0);
    mDocument->set_file_name(u"a"_s);
    QString told = u"?"_s;
    connect(mDocument, &JournalDocument::fileNameChanged, this,
            [&](const JournalDocument* document) { told = document->file_name(); });
    mDocument->set_file_name({});
    QCOMPARE(changed.count(), 2);
    QCOMPARE(told, QString());
}

void TstJournalDocument::strip_is_as_wide_as_its_digits_data()
{
    QTest::addColumn<int>("blocks");
    QTest::addColumn<int>("digits");

    QTest::newRow("1") << 1 << 1;
    QTest::newRow("9") << 9 << 1;
    QTest::newRow("10") << 10 << 2;
    QTest::newRow("99") << 99 << 2;
    QTest::newRow("100") << 100 << 3;
    QTest::newRow("10000") << 10000 << 5;
}

void TstJournalDocument::strip_is_as_wide_as_its_digits()
{
    QFETCH(const int, blocks);
    QFETCH(const int, digits);
    for (const int size : {8, 17}) {
        mDocument->setFont(QFont(u"DejaVu Sans Mono"_s, size));
        mDocument->setPlainText(numbered_lines(blocks));
        const int width = 3 + digits * mDocument->fontMetrics().horizontalAdvance(u'9');
        QCOMPARE(mDocument->lineNumberAreaWidth(), width);
        QCOMPARE(mDocument->strip()->sizeHint(), QSize(width, 0));
    }
}

void TstJournalDocument::margin_follows_the_number_of_blocks()
{
    mDocument->setPlainText(numbered_lines(9));
    const int one_digit = mDocument->lineNumberAreaWidth();
    QCOMPARE(mDocument->viewportMargins(), QMargins(one_digit, 0, 0, 0));
    mDocument->appendPlainText(u"the tenth"_s);
    const int two_digits = mDocument->lineNumberAreaWidth();
    QVERIFY(two_digits > one_digit);
    QCOMPARE(mDocument->viewportMargins(), QMargins(two_digits, 0, 0, 0));
    mDocument->undo();
    QCOMPARE(mDocument->viewportMargins(), QMargins(one_digit, 0, 0, 0));
}

void TstJournalDocument::strip_fills_the_left_of_the_document()
{
    QVERIFY(show_active(mTabs.get()));
    const QRect contents = mDocument->contentsRect();
    QVERIFY(contents.top() > 0); // there is a frame around it
    QCOMPARE(mDocument->strip()->geometry(),
             QRect(contents.left(), contents.top(), mDocument->lineNumberAreaWidth(), contents.height()));
    mTabs->resize(500, 200);
    QCOMPARE(mDocument->strip()->height(), mDocument->contentsRect().height());
    QVERIFY(mDocument->strip()->height() < contents.height());
    mTabs->hide();
}

void TstJournalDocument::small_update_leaves_the_margin()
{
    const QMargins other(50, 1, 2, 3);
    mDocument->setViewportMargins(other);
    const QRect all = mDocument->viewport()->rect();
    emit mDocument->updateRequest(all.adjusted(1, 0, 0, 0), 0);
    emit mDocument->updateRequest(all.adjusted(0, 0, 0, -1), 1);
    QCOMPARE(mDocument->viewportMargins(), other);
}

void TstJournalDocument::update_of_the_whole_view_sets_the_margin()
{
    for (const int dy : {0, 1}) {
        mDocument->setViewportMargins({50, 1, 2, 3});
        emit mDocument->updateRequest(mDocument->viewport()->rect(), dy);
        QCOMPARE(mDocument->viewportMargins(), QMargins(mDocument->lineNumberAreaWidth(), 0, 0, 0));
    }
}

void TstJournalDocument::update_repaints_its_rows_of_the_strip()
{
    QVERIFY(show_active(mTabs.get()));
    QCoreApplication::processEvents();
    PaintWatch watch(mDocument->strip());
    emit mDocument->updateRequest(QRect(50, 20, 30, 7), 0);
    QTRY_COMPARE(watch.count, 1);
    QCOMPARE(watch.area, QRect(0, 20, mDocument->strip()->width(), 7));
    mTabs->hide();
}

void TstJournalDocument::scrolling_moves_the_strip()
{
    mDocument->setPlainText(numbered_lines(90));
    QVERIFY(show_active(mTabs.get()));
    QCoreApplication::processEvents();
    PaintWatch watch(mDocument->strip());
    emit mDocument->updateRequest(QRect(0, 0, 10, 10), -30);
    QTRY_VERIFY(watch.count > 0);
    // What is scrolled in has to be painted, which a plain update of the rectangle would not do.
    QCOMPARE(watch.area.bottom(), mDocument->strip()->rect().bottom());
    mTabs->hide();
}

QImage TstJournalDocument::expected_strip() const
{
    const LineNumberArea* strip = mDocument->strip();
    QImage image(strip->size(), QImage::Format_RGB32);
    image.fill(QColor(192, 192, 192));
    QPainter painter(&image);
    painter.setFont(strip->font());
    painter.setPen(QColor(0, 0, 0));
    const QTextDocument* text = mDocument->document();
    for (QTextBlock block = text->firstBlock(); block.isValid(); block = block.next()) {
        const auto top = static_cast<int>(
            mDocument->blockBoundingGeometry(block).translated(mDocument->contentOffset()).top());
        const QRect line(0, top, strip->width(), mDocument->fontMetrics().height());
        if (block.isVisible() && top >= -line.height() && top < strip->height())
            painter.drawText(line, Qt::AlignRight, QString::number(block.blockNumber() + 1));
    }
    return image;
}

void TstJournalDocument::strip_shows_black_numbers_on_light_gray_data()
{
    QTest::addColumn<int>("blocks");
    QTest::addColumn<int>("scrolled");

    QTest::newRow("empty document") << 0 << 0;
    QTest::newRow("few lines") << 3 << 0;
    QTest::newRow("more than there is room for") << 120 << 0;
    QTest::newRow("scrolled") << 120 << 50;
    QTest::newRow("scrolled to the end") << 120 << 1000;
}

void TstJournalDocument::strip_shows_black_numbers_on_light_gray()
{
    QFETCH(const int, blocks);
    QFETCH(const int, scrolled);
    mDocument->setPlainText(numbered_lines(blocks));
    QVERIFY(show_active(mTabs.get()));
    mDocument->verticalScrollBar()->setValue(scrolled);
    const QImage found = mDocument->strip()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(found, expected_strip());
    QCOMPARE(found.pixelColor(0, found.height() - 1), QColor(Qt::lightGray));
    mTabs->hide();
}

void TstJournalDocument::strip_cuts_fractions_of_pixels()
{
    mDocument->setPlainText(numbered_lines(3));
    mDocument->document()->setDocumentMargin(4.75);
    QVERIFY(show_active(mTabs.get()));
    const QTextBlock first = mDocument->document()->firstBlock();
    QCOMPARE(mDocument->blockBoundingGeometry(first).translated(mDocument->contentOffset()).top(), 4.75);
    QCOMPARE(mDocument->strip()->grab().toImage().convertToFormat(QImage::Format_RGB32), expected_strip());
    mTabs->hide();
}

void TstJournalDocument::strip_skips_hidden_lines()
{
    mDocument->setPlainText(numbered_lines(5));
    QVERIFY(show_active(mTabs.get()));
    const QImage before = mDocument->strip()->grab().toImage();
    QTextBlock hidden = mDocument->document()->findBlockByNumber(2);
    hidden.setVisible(false);
    mDocument->document()->markContentsDirty(hidden.position(), hidden.length());
    const QImage found = mDocument->strip()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(found, expected_strip());
    QVERIFY(found != before.convertToFormat(QImage::Format_RGB32));
    mTabs->hide();
}

void TstJournalDocument::strip_paints_only_where_it_is_asked()
{
    mDocument->setPlainText(numbered_lines(9));
    QVERIFY(show_active(mTabs.get()));
    // A strip that is filled beyond the area of the event would hide what lies outside of it.
    const QRect area(0, 20, mDocument->strip()->width(), 30);
    QImage image(mDocument->strip()->size(), QImage::Format_RGB32);
    image.fill(Qt::red);
    mDocument->strip()->render(&image, area.topLeft(), area, QWidget::RenderFlags());
    QCOMPARE(image.copy(area), expected_strip().copy(area));
    QCOMPARE(image.pixelColor(0, area.top() - 1), QColor(Qt::red));
    QCOMPARE(image.pixelColor(0, area.bottom() + 1), QColor(Qt::red));
    mTabs->hide();
}

void TstJournalDocument::strip_keeps_its_colors_in_dark_ones()
{
    QPalette dark(Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    mTabs->setPalette(dark);
    mDocument->setPlainText(numbered_lines(3));
    QVERIFY(show_active(mTabs.get()));
    QCOMPARE(mDocument->strip()->grab().toImage().convertToFormat(QImage::Format_RGB32), expected_strip());
    mTabs->hide();
}

void TstJournalDocument::current_line_is_highlighted()
{
    const auto selections = mDocument->extraSelections();
    QCOMPARE(selections.size(), 1);
    QCOMPARE(selections.first().format.background(), QBrush(QColor(Qt::yellow).lighter(160)));
    QCOMPARE(selections.first().format.property(QTextFormat::FullWidthSelection), QVariant(true));
}

void TstJournalDocument::highlight_follows_the_cursor_without_its_selection()
{
    mDocument->setPlainText(numbered_lines(5));
    select(*mDocument, 0, 2, 3, 1);
    const auto selections = mDocument->extraSelections();
    QCOMPARE(selections.size(), 1);
    QCOMPARE(selections.first().cursor.position(), mDocument->textCursor().position());
    QVERIFY(!selections.first().cursor.hasSelection());
    QVERIFY(mDocument->textCursor().hasSelection());
}

void TstJournalDocument::read_only_document_has_no_highlight()
{
    mDocument->setPlainText(numbered_lines(5));
    mDocument->setReadOnly(true);
    select(*mDocument, 2, 0, 2, 0);
    QVERIFY(mDocument->extraSelections().isEmpty());
    mDocument->setReadOnly(false);
    select(*mDocument, 3, 0, 3, 0);
    QCOMPARE(mDocument->extraSelections().size(), 1);
}

/** Versions of Qt that tell the color scheme say that this platform has none; others go by the palette. */
void TstJournalDocument::color_of_the_highlight_follows_the_color_scheme()
{
    QVERIFY(!is_dark_color_scheme());
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(30, 30, 30));
    dark.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(dark);
    const bool is_dark = is_dark_color_scheme();
    mDocument->setPlainText(numbered_lines(2));
    select(*mDocument, 1, 0, 1, 0);
    const QColor color = mDocument->extraSelections().first().format.background().color();
    QApplication::setPalette(before);
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    QVERIFY(!is_dark);
    QCOMPARE(color, QColor(Qt::yellow).lighter(160));
#else
    QVERIFY(is_dark);
    QCOMPARE(color, QColor(75, 75, 75));
#endif
}

void TstJournalDocument::mark_on_the_tab_follows_the_modified_flag()
{
    auto* other = new Document(mEditor.get(), mTabs.get(), "other");
    mTabs->insertTab(0, other, u"other"_s);
    mDocument->insertPlainText(u"a"_s);
    QCOMPARE(mTabs->tabText(1), u"* Untitled"_s);
    mDocument->insertPlainText(u"b"_s);
    QCOMPARE(mTabs->tabText(1), u"* Untitled"_s);
    mDocument->document()->setModified(false);
    QCOMPARE(mTabs->tabText(1), u"Untitled"_s);
    QCOMPARE(mTabs->tabText(0), u"other"_s);
}

void TstJournalDocument::mark_replaces_one_that_is_there()
{
    mTabs->setTabText(0, u"* a.jou"_s);
    mDocument->document()->setModified(true);
    QCOMPARE(mTabs->tabText(0), u"* a.jou"_s);
    mDocument->document()->setModified(false);
    QCOMPARE(mTabs->tabText(0), u"a.jou"_s);
}

void TstJournalDocument::one_mark_goes_at_most()
{
    mDocument->document()->setModified(true);
    mTabs->setTabText(0, u"* * a"_s);
    mDocument->document()->setModified(false);
    QCOMPARE(mTabs->tabText(0), u"* a"_s);
    mDocument->document()->setModified(true);
    mTabs->setTabText(0, u"*a"_s);
    mDocument->document()->setModified(false);
    QCOMPARE(mTabs->tabText(0), u"*a"_s);
}

void TstJournalDocument::document_outside_the_tabs_marks_none()
{
    Document outside(mEditor.get(), mTabs.get(), "outside");
    outside.document()->setModified(true);
    QCOMPARE(mTabs->tabText(0), u"Untitled"_s);
}

void TstJournalDocument::text_may_be_dropped_into_a_line_that_is_cut_off_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("lines_above_the_edge");
    QTest::newRow("cut line") << u"longer than before"_s << 0;
    QTest::newRow("several lines, cut line") << u"longer\nthan before"_s << 0;
    QTest::newRow("several lines, line above it") << u"longer\nthan before"_s << 1;
}

void TstJournalDocument::text_may_be_dropped_into_a_line_that_is_cut_off()
{
    QFETCH(const QString, text);
    QFETCH(const int, lines_above_the_edge);
    QVERIFY(show_active(mTabs.get()));
    const QStringList before = QString(u"ab\n"_s.repeated(100)).split(u'\n');
    mDocument->setPlainText(before.join(u'\n'));
    const int line_height = mDocument->cursorRect().height();
    // Every way to cut the last line.
    for (int cut = 0; cut < line_height; ++cut) {
        mDocument->setPlainText(before.join(u'\n'));
        mDocument->setFixedHeight(200 + cut);
        QCoreApplication::processEvents();
        const QPoint place(2, mDocument->viewport()->height() - 1 - lines_above_the_edge * line_height);
        const int line = mDocument->cursorForPosition(place).blockNumber();
        QVERIFY(line > 3);
        QVERIFY(drop_text(mDocument->viewport(), place, text));
        QStringList after = before;
        after[line] = text + u"ab"_s;
        QCOMPARE(mDocument->toPlainText(), after.join(u'\n'));
        QVERIFY(mDocument->viewport()->rect().contains(mDocument->cursorRect()));
        mDocument->undo();
        QCOMPARE(mDocument->toPlainText(), before.join(u'\n'));
    }
}

void TstJournalDocument::view_lower_than_a_line_takes_no_drop()
{
    QVERIFY(show_active(mTabs.get()));
    mDocument->setPlainText(u"ab\n"_s.repeated(100));
    mDocument->setFixedHeight(mDocument->height() - mDocument->viewport()->height() + 8);
    QCoreApplication::processEvents();
    QVERIFY(mDocument->viewport()->height() < mDocument->cursorRect().height());
    const QString before = mDocument->toPlainText();
    QVERIFY(!drop_text(mDocument->viewport(), QPoint(2, 6), u"longer than before"_s));
    QCOMPARE(mDocument->toPlainText(), before);
}

void TstJournalDocument::names_for_connections_are_as_promised()
{
    const QMetaObject& meta = JournalDocument::staticMetaObject;
    QStringList names;
    for (int method = meta.methodOffset(); method < meta.methodCount(); ++method)
        names << QString::fromLatin1(meta.method(method).methodSignature());
    QCOMPARE(names, QStringList({u"fileNameChanged(JournalDocument*)"_s, u"updateLineNumberAreaWidth(int)"_s,
                                 u"highlightCurrentLine()"_s, u"updateLineNumberArea(QRect,int)"_s,
                                 u"doc_modified(bool)"_s}));
}

OSTREL_TEST(TstJournalDocument)
#include "tst_journaldocument.moc"
