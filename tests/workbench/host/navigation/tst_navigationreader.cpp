// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/NavigationModel.h"
#include "host/navigation/NavigationReader.h"
#include "host/navigation/NavigationResourcesDelay.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "workbench/host/navigation/FormServices.h"
#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/host/navigation/NavigationNode.h"
#include "workbench/host/navigation/navigation_helpers.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QDir>
#include <QPixmap>
#include <QScopeGuard>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace fennar;
using namespace Qt::StringLiterals;

/** What is read, what is left out, and what is said about it. */
class TstNavigationReader : public TestCase
{
    Q_OBJECT

private slots:
    void one_file_data();
    void one_file();
    void every_attribute_is_kept();
    void command_without_a_tip_has_its_summary();
    void icon_of_the_shell_is_found();
    void icon_beside_the_file_is_found();
    void icon_below_the_file_is_found();
    void icon_is_read_when_it_is_asked_for();
    void entries_cannot_be_edited();
    void entries_inside_a_page_know_their_model();

    void deep_nesting_is_cut_off();
    void very_deep_nesting_is_told_once();
    void troubles_beyond_fifty_are_counted();

    void files_are_read_in_the_order_of_their_names();
    void entries_of_the_same_id_merge();
    void id_and_title_are_one_name_space();
    void first_file_names_and_later_ones_complete();
    void titles_and_tips_are_translated_and_ids_are_not();
    void component_of_a_merged_group_is_told();
    void duplicate_command_of_another_file_is_told();
    void command_and_group_of_one_id_do_not_merge();
    void broken_file_does_not_stop_the_next();

    void only_the_extension_is_read();
    void hidden_files_are_not_read();
    void folder_with_the_extension_is_not_read();
    void missing_directory_is_told();
    void empty_directory_name_is_told();
    void file_instead_of_directory_is_told();
    void directory_without_files_is_told();
    void link_to_nowhere_is_told();
    void pipe_is_told();
    void file_without_permission_is_told();
    void directory_without_permission_is_told();
    void read_error_is_told();

    void null_model_reads_nothing();
    void reading_again_starts_over();
    void nodes_and_titles_are_handed_out();
    void without_resources_every_entry_is_enabled();
    void with_resources_entries_wait_for_their_component();

private:
    NavigationFolder& folder() { return *mFolder; }
    std::unique_ptr<NavigationFolder> mFolder;

    void init_folder() { mFolder = std::make_unique<NavigationFolder>(); }

protected:
    void set_up() override { init_folder(); }
    void tear_down() override
    {
        set_component_loaded(u"mesher"_s, false);
        mFolder.reset();
    }
};

void TstNavigationReader::one_file_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QStringList>("messages");

    const QStringList nothing;
    const QStringList page = {u"page P"_s};
    const QStringList page_and_command = {u"page P"_s, u"  command C [c]"_s};
    const QByteArray command = "<command title=\"C\" command=\"c\"/>";
    const auto in_page = [](const QByteArray& contents) {
        return navigation("<page title=\"P\">" + contents + "</page>");
    };

    QTest::newRow("pages, groups in groups, commands at every place")
        << navigation("\n<page title=\"P\">" + command + "<group title=\"G\"><group title=\"H\">" + command +
                      "</group>" + command + "</group></page>\n<page title=\"Q\"/>\n")
        << QStringList{u"page P"_s,      u"  command C [c]"_s,     u"  group G"_s,
                       u"    group H"_s, u"      command C [c]"_s, u"    command C [c]"_s,
                       u"page Q"_s}
        << nothing;
    QTest::newRow("no pages") << navigation("") << nothing << nothing;
    QTest::newRow("comments and processing instructions")
        << QByteArray("<?xml version=\"1.0\"?><!-- a --><?b c?>") +
               in_page("<!-- d --><?e f?><command title=\"C\" command=\"c\"><!-- g --></command>")
        << page_and_command << nothing;
    QTest::newRow("byte order mark") << "\xef\xbb\xbf" + in_page(command) << page_and_command << nothing;
    QTest::newRow("letters beyond Latin")
        << navigation("<page title=\"\xe7\xb6\xb2\xe6\xa0\xbc &amp; \xc3\xa9\"/>")
        << QStringList{u"page 網格 & é"_s} << nothing;
    QTest::newRow("title is trimmed and put on one line")
        << navigation("<page title=\"  A \n  B \"/>") << QStringList{u"page A B"_s} << nothing;
    QTest::newRow("blanks inside a command stay")
        << in_page("<command title=\"C\" command=\" echo &quot;a   b&quot; \"/>")
        << QStringList{u"page P"_s, u"  command C [echo \"a   b\"]"_s} << nothing;
    QTest::newRow("attributes of a namespace are not ours")
        << in_page("<command xmlns:x=\"urn:x\" x:note=\"n\" xml:lang=\"en\" title=\"C\" command=\"c\"/>")
        << page_and_command << nothing;
    QTest::newRow("same title in different places")
        << navigation("<page title=\"P\">" + command + "</page><page title=\"Q\">" + command + "</page>")
        << QStringList{u"page P"_s, u"  command C [c]"_s, u"page Q"_s, u"  command C [c]"_s} << nothing;
    QTest::newRow("same title, different ids")
        << in_page("<group id=\"a\" title=\"G\"/><group id=\"b\" title=\"G\"/>")
        << QStringList{u"page P"_s, u"  group G"_s, u"  group G"_s} << nothing;

    QTest::newRow("wrong root element")
        << QByteArray("<menu version=\"1\">\n</menu>") << nothing
        << QStringList{u"a.xml:1:19: unexpected root element \"menu\"; expected <navigation>"_s};
    QTest::newRow("unsupported version")
        << QByteArray("<navigation version=\"2\"><page title=\"P\"/></navigation>") << nothing
        << QStringList{u"a.xml:1:25: unsupported version \"2\"; expected \"1\""_s};
    QTest::newRow("long and broken version is quoted short and on one line")
        << "<navigation version=\"a\nb" + QByteArray(100, 'x') + "\"/>" << nothing
        << QStringList{u"a.xml:2:105: unsupported version \"a b"_s + QString(57, u'x') +
                       u"...\"; expected \"1\""_s};
    QTest::newRow("missing version")
        << QByteArray("<navigation><page title=\"P\"/></navigation>") << page
        << QStringList{
               u"a.xml:1:13: missing attribute \"version\" in <navigation>; the file is read as version \"1\""_s};
    QTest::newRow("unknown attribute of the root")
        << QByteArray("<navigation version=\"1\" lang=\"en\"><page title=\"P\"/></navigation>") << page
        << QStringList{u"a.xml:1:35: unknown attribute \"lang\" in <navigation>; expected version"_s};

    QTest::newRow("unknown element in a group")
        << in_page("\n <group title=\"G\">\n  <foo title=\"F\">" + command + "</foo>" + command + "</group>")
        << QStringList{u"page P"_s, u"  group G"_s, u"    command C [c]"_s}
        << QStringList{u"a.xml:3:3: unknown element \"foo\" in <group>; expected <group> or <command>"_s};
    QTest::newRow("unknown element right behind a tag")
        << in_page("<foo/>") << page
        << QStringList{u"a.xml:1:41: unknown element \"foo\" in <page>; expected <group> or <command>"_s};
    QTest::newRow("unknown element behind a comment")
        << in_page("<!----><foo/>") << page
        << QStringList{u"a.xml:1:48: unknown element \"foo\" in <page>; expected <group> or <command>"_s};
    QTest::newRow("command beside pages")
        << navigation("\n" + command + "\n<page title=\"P\"/>") << page
        << QStringList{u"a.xml:2:1: unknown element \"command\" in <navigation>; expected <page>"_s};
    QTest::newRow("page in a page")
        << in_page("\n<page title=\"Q\"/>") << page
        << QStringList{u"a.xml:2:1: unknown element \"page\" in <page>; expected <group> or <command>"_s};
    QTest::newRow("element with a prefix")
        << in_page("\n<x:group xmlns:x=\"urn:x\" title=\"Q\"/>") << page
        << QStringList{u"a.xml:2:1: unknown element \"x:group\" in <page>; expected <group> or <command>"_s};
    QTest::newRow("text between entries")
        << in_page("words" + command) << page_and_command
        << QStringList{u"a.xml:1:41: unexpected text in <page>; expected <group> or <command>"_s};
    QTest::newRow("element behind character data")
        << in_page("<![CDATA[words]]><foo/>") << page
        << QStringList{u"a.xml:1:41: unexpected text in <page>; expected <group> or <command>"_s,
                       u"a.xml:1:58: unknown element \"foo\" in <page>; expected <group> or <command>"_s};
    QTest::newRow("contents of a command")
        << in_page("<command title=\"C\" command=\"c\">\n <option/>\n</command>") << page_and_command
        << QStringList{u"a.xml:2:2: unexpected contents in <command>; expected nothing"_s};
    QTest::newRow("text in a command")
        << in_page("<command title=\"C\" command=\"c\">x</command>") << page_and_command
        << QStringList{u"a.xml:1:72: unexpected contents in <command>; expected nothing"_s};

    QTest::newRow("page without title")
        << navigation("\n<page id=\"p\">" + command + "</page>") << nothing
        << QStringList{u"a.xml:2:1: missing attribute \"title\" in <page>; it is left out"_s};
    QTest::newRow("group with a blank title")
        << in_page("\n<group title=\" \">" + command + "</group>" + command) << page_and_command
        << QStringList{u"a.xml:2:1: missing attribute \"title\" in <group>; it is left out"_s};
    QTest::newRow("command without title")
        << in_page("\n<command command=\"c\"/>") << page
        << QStringList{u"a.xml:2:1: missing attribute \"title\" in <command>; it is left out"_s};
    QTest::newRow("command without command")
        << in_page("\n<command title=\"C\"/>") << page
        << QStringList{u"a.xml:2:1: missing attribute \"command\" in <command>; it is left out"_s};
    QTest::newRow("command with a blank command")
        << in_page("\n<command title=\"C\" command=\" \"/>") << page
        << QStringList{u"a.xml:2:1: missing attribute \"command\" in <command>; it is left out"_s};
    QTest::newRow("command of two lines")
        << in_page("\n<command title=\"C\" command=\"a&#10;b\"/>") << page
        << QStringList{
               u"a.xml:2:1: attribute \"command\" holds a line break; expected one line, it is left out"_s};
    QTest::newRow("unknown attribute of a group")
        << in_page("\n<group title=\"G\" command=\"c\"/>") << QStringList{u"page P"_s, u"  group G"_s}
        << QStringList{u"a.xml:2:1: unknown attribute \"command\" in <group>; "
                       "expected id, title, icon, tip or component"_s};
    QTest::newRow("unknown attribute of a command")
        << in_page("\n<command title=\"C\" command=\"c\" Tip=\"t\"/>") << page_and_command
        << QStringList{u"a.xml:2:1: unknown attribute \"Tip\" in <command>; "
                       "expected id, title, icon, tip, usage, component or command"_s};
    QTest::newRow("page twice") << navigation("<page title=\"P\"/>\n<page title=\"P\">" + command + "</page>")
                                << page
                                << QStringList{u"a.xml:2:1: duplicate id \"P\" in <navigation>; "
                                               "<page> of line 1 in a.xml stands, this one is left out"_s};
    QTest::newRow("id that is another entry's title")
        << in_page(command + "\n<command id=\"C\" title=\"D\" command=\"d\"/>") << page_and_command
        << QStringList{u"a.xml:2:1: duplicate id \"C\" in <page>; "
                       "<command> of line 1 in a.xml stands, this one is left out"_s};

    QTest::newRow("icon with an absolute path")
        << in_page("\n<command title=\"C\" command=\"c\" icon=\"/a.svg\"/>") << page_and_command
        << QStringList{u"a.xml:2:1: absolute path \"/a.svg\" in attribute \"icon\"; "
                       "expected a name or a relative path"_s};
    QTest::newRow("icon as resource path")
        << in_page("\n<command title=\"C\" command=\"c\" icon=\":/a.svg\"/>") << page_and_command
        << QStringList{u"a.xml:2:1: absolute path \":/a.svg\" in attribute \"icon\"; "
                       "expected a name or a relative path"_s};
    QTest::newRow("icon that is nowhere")
        << in_page("\n<command title=\"C\" command=\"c\" icon=\"a.svg\"/>") << page_and_command
        << QStringList{u"a.xml:2:1: no icon \"a.svg\" among the shell's images or beside the file"_s};
    QTest::newRow("icon that is a folder")
        << in_page("\n<command title=\"C\" command=\"c\" icon=\"..\"/>") << page_and_command
        << QStringList{u"a.xml:2:1: no icon \"..\" among the shell's images or beside the file"_s};

    QTest::newRow("empty file") << QByteArray() << nothing << QStringList{u"a.xml:1:1: the file is empty"_s};
    QTest::newRow("blank file") << QByteArray(" \n") << nothing
                                << QStringList{u"a.xml:1:1: not well-formed: Premature end of document."_s};
    QTest::newRow("tags that do not match: what was read stands")
        << "<navigation version=\"1\">\n<page title=\"P\">" + command + "\n</group>" << page_and_command
        << QStringList{u"a.xml:3:9: not well-formed: Opening and ending tag mismatch."_s};
    QTest::newRow("cut off inside a tag")
        << "<navigation version=\"1\"><page title=\"P\">" + command + "\n<command tit" << page_and_command
        << QStringList{u"a.xml:2:13: not well-formed: Premature end of document."_s};
    QTest::newRow("more behind the root element")
        << in_page(command) + "\n<page/>" << page_and_command
        << QStringList{u"a.xml:2:8: not well-formed: Extra content at end of document."_s};
    QTest::newRow("binary file") << QByteArray("\x7f\x45\x4c\x46\x02\x01\x01\x00\x00\x00\x00", 11) << nothing
                                 << QStringList{u"a.xml:1:2: not well-formed: Start tag expected."_s};
    QTest::newRow("not UTF-8") << in_page("\n<group title=\"\xc3\xa9\xff\xfe\"/>") << nothing
                               << QStringList{u"a.xml:2:16: not well-formed: the text is not UTF-8"_s};
    QTest::newRow("half a letter at the end")
        << in_page("") + "\n<!-- \xc3" << QStringList{u"page P"_s}
        << QStringList{u"a.xml:2:6: not well-formed: the text is not UTF-8"_s};
    QTest::newRow("encoding that the file names")
        << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><navigation version=\"1\">"
                      "<page title=\"\xe9\"/></navigation>")
        << QStringList{u"page é"_s} << nothing;
    QTest::newRow("encoding that is no name, on two lines")
        << QByteArray("<?xml version=\"1.0\" encoding=\"a\nb\"?><navigation version=\"1\"/>") << nothing
        << QStringList{u"a.xml:2:5: not well-formed: a b is an invalid encoding name."_s};
    QTest::newRow("other encoding and another fault")
        << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><navigation version=\"1\">"
                      "<page title=\"\xe9\"/></menu>")
        << QStringList{u"page é"_s}
        << QStringList{u"a.xml:1:92: not well-formed: Opening and ending tag mismatch."_s};
    QTest::newRow("entity that is not declared")
        << in_page("\n&nope;") << page
        << QStringList{u"a.xml:2:7: not well-formed: Entity 'nope' not declared."_s};
    QTest::newRow("entity of a document type elsewhere")
        << "<!DOCTYPE navigation SYSTEM \"x.dtd\">" + in_page("&nope;" + command) << page_and_command
        << QStringList{u"a.xml:1:77: unexpected text in <page>; expected <group> or <command>"_s};

    const QByteArray bomb = "<!DOCTYPE navigation [<!ENTITY a \"" + QByteArray(50, 'a') +
                            "\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
                            "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">"
                            "<!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\">]>\n";
    const QString limit = u"Entity expands to more characters than the entity expansion limit."_s;
    QTest::newRow("entities that grow without bounds, in text")
        << bomb + in_page("\n&d;") << page << QStringList{u"a.xml:3:4: not well-formed: "_s + limit};
    QTest::newRow("entities that grow without bounds, in an attribute")
        << bomb + in_page("\n<group title=\"&d;\"/>") << page
        << QStringList{u"a.xml:3:18: not well-formed: "_s + limit};
    QTest::newRow("entity that holds itself")
        << "<!DOCTYPE navigation [<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">]>" + in_page("\n&a;") << page
        << QStringList{u"a.xml:2:4: not well-formed: Self-referencing entity detected."_s};
}

void TstNavigationReader::one_file()
{
    QFETCH(const QByteArray, contents);
    QFETCH(const QStringList, entries);
    QFETCH(const QStringList, messages);
    folder().write(u"a.xml"_s, contents);
    NavigationModel model(nullptr);
    const QStringList told = folder().read(&model);
    QCOMPARE(told, messages);
    QCOMPARE(tree(model), entries);
}

void TstNavigationReader::every_attribute_is_kept()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\" icon=\"square.svg\" tip=\"p\" component=\"x\">"
                                          "<command id=\"i\" title=\"C\" icon=\"square.svg\" tip=\"t\" "
                                          "usage=\"c [X]\" component=\"y\" command=\"c 1\"/></page>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    const QModelIndex page = model.index(0, 0);
    QCOMPARE(page.data().toString(), u"P"_s);
    QCOMPARE(page.data(NavigationRole::Kind).toInt(), static_cast<int>(NavigationKind::Page));
    QCOMPARE(page.data(NavigationRole::IconName).toString(), u"square.svg"_s);
    QCOMPARE(page.data(NavigationRole::Tip).toString(), u"p"_s);
    QCOMPARE(page.data(NavigationRole::Component).toString(), u"x"_s);
    const QModelIndex command = model.index(0, 0, page);
    QCOMPARE(command.data().toString(), u"C"_s);
    QCOMPARE(command.data(NavigationRole::Kind).toInt(), static_cast<int>(NavigationKind::Command));
    QCOMPARE(command.data(NavigationRole::IconName).toString(), u"square.svg"_s);
    QCOMPARE(command.data(NavigationRole::Tip).toString(), u"t"_s);
    QCOMPARE(command.data(NavigationRole::Usage).toString(), u"c [X]"_s);
    QCOMPARE(command.data(NavigationRole::Component).toString(), u"y"_s);
    QCOMPARE(command.data(NavigationRole::Command).toString(), u"c 1"_s);
}

void TstNavigationReader::command_without_a_tip_has_its_summary()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"><command title=\"C\" command=\"c 1\"/>"
                                          "<command title=\"D\" tip=\"t\" command=\"c\"/></page>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    const auto tip = [&model](const QString& title) {
        return entry(model, title).data(NavigationRole::Tip).toString();
    };
    CommandRegistry registry;
    set_form_services({&registry, nullptr, {}});
    const auto restore = qScopeGuard([] { set_form_services({}); });
    QCOMPARE(tip(u"C"_s), QString());
    registry.add({.name = u"c"_s,
                  .summary = u"Does something."_s,
                  .perform = [](CommandCall&, const CommandArguments&) {}});
    QCOMPARE(tip(u"C"_s), u"Does something."_s);
    QCOMPARE(tip(u"D"_s), u"t"_s);
    QCOMPARE(tip(u"P"_s), QString());
}

namespace {

/** The middle of the picture of the first page. */
QColor middle(const NavigationModel& model)
{
    const QImage picture = model.item(0)->icon().pixmap(16, 16).toImage();
    return picture.isNull() ? QColor() : picture.pixelColor(8, 8);
}

} // namespace

void TstNavigationReader::icon_of_the_shell_is_found()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\" icon=\"square.svg\"/>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    QCOMPARE(middle(model), QColor(0x33, 0xaa, 0x77));
}

void TstNavigationReader::icon_beside_the_file_is_found()
{
    QPixmap red(16, 16);
    red.fill(Qt::red);
    QVERIFY(red.save(folder().path(u"own.png"_s)));
    // The shell's own image of a name goes first.
    QVERIFY(red.save(folder().path(u"square.svg"_s), "png"));
    folder().write(u"a.xml"_s,
                   navigation("<page title=\"P\" icon=\"own.png\"/><page title=\"Q\" icon=\"square.svg\"/>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    QCOMPARE(middle(model), QColor(Qt::red));
    model.removeRow(0);
    QCOMPARE(middle(model), QColor(0x33, 0xaa, 0x77));
}

void TstNavigationReader::icon_below_the_file_is_found()
{
    QPixmap blue(16, 16);
    blue.fill(Qt::blue);
    QVERIFY(QDir(folder().path()).mkdir(u"images"_s));
    QVERIFY(blue.save(folder().path(u"images/own.png"_s)));
    folder().write(u"a.xml"_s, navigation("<page title=\"P\" icon=\"images/own.png\"/>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    QCOMPARE(middle(model), QColor(Qt::blue));
}

void TstNavigationReader::icon_is_read_when_it_is_asked_for()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    QVERIFY(pixmap.save(folder().path(u"own.png"_s)));
    folder().write(u"a.xml"_s, navigation("<page title=\"P\" icon=\"own.png\"/>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    pixmap.fill(Qt::blue);
    QVERIFY(pixmap.save(folder().path(u"own.png"_s)));
    QCOMPARE(middle(model), QColor(Qt::blue));
    // And once only.
    pixmap.fill(Qt::red);
    QVERIFY(pixmap.save(folder().path(u"own.png"_s)));
    QCOMPARE(middle(model), QColor(Qt::blue));
}

void TstNavigationReader::entries_cannot_be_edited()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"/>"));
    NavigationModel model(nullptr);
    folder().read(&model);
    QVERIFY(!model.index(0, 0).flags().testFlag(Qt::ItemIsEditable));
}

void TstNavigationReader::entries_inside_a_page_know_their_model()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"><group title=\"G\">"
                                          "<command title=\"C\" command=\"c\"/></group></page>"));
    NavigationModel model(nullptr);
    folder().read(&model);
    const QList<QStandardItem*> found = model.findItems(u"C"_s, Qt::MatchExactly | Qt::MatchRecursive);
    QCOMPARE(found.size(), 1);
    QVERIFY(found.first()->index().isValid());
}

void TstNavigationReader::deep_nesting_is_cut_off()
{
    QByteArray open;
    QByteArray close;
    for (int group = 1; group <= 17; ++group) {
        open += "<group title=\"" + QByteArray::number(group) + "\">\n";
        close += "</group>";
    }
    folder().write(u"a.xml"_s, navigation("<page title=\"P\">\n" + open + close + "</page>"));
    NavigationModel model(nullptr);
    QCOMPARE(
        folder().read(&model),
        QStringList{u"a.xml:18:1: groups stand in each other more than 16 deep; this one is left out"_s});
    const QStringList lines = tree(model);
    QCOMPARE(lines.size(), 17);
    QCOMPARE(lines.last().trimmed(), u"group 16"_s);
}

void TstNavigationReader::very_deep_nesting_is_told_once()
{
    constexpr int depth = 100'000;
    folder().write(u"a.xml"_s,
                   navigation("<page title=\"P\">" + QByteArray("<group title=\"G\">").repeated(depth) +
                              QByteArray("</group>").repeated(depth) + "</page>" + "<page title=\"Q\"/>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model).size(), 1);
    QCOMPARE(tree(model).last(), u"page Q"_s);
}

void TstNavigationReader::troubles_beyond_fifty_are_counted()
{
    folder().write(u"a.xml"_s,
                   navigation("<page title=\"P\">" + QByteArray("<x/>").repeated(53) + "</page>"));
    folder().write(u"b.xml"_s, navigation("<y/>"));
    NavigationModel model(nullptr);
    const QStringList told = folder().read(&model);
    QCOMPARE(told.size(), 52);
    QVERIFY(told[49].startsWith(u"a.xml:1:"_s));
    QCOMPARE(told[50], u"a.xml: 3 further troubles are not told"_s);
    QVERIFY(told[51].startsWith(u"b.xml:1:"_s));
}

void TstNavigationReader::files_are_read_in_the_order_of_their_names()
{
    for (const char* name : {"b", "10", "a", "9"})
        folder().write(QString::fromLatin1(name) + u".xml"_s,
                       navigation("<page title=\"" + QByteArray(name) + "\"/>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    QCOMPARE(tree(model), (QStringList{u"page 10"_s, u"page 9"_s, u"page a"_s, u"page b"_s}));
}

void TstNavigationReader::entries_of_the_same_id_merge()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"><group title=\"G\" id=\"g\">"
                                          "<command title=\"A\" command=\"a\"/></group></page>"));
    folder().write(u"b.xml"_s,
                   navigation("<page title=\"Q\"/><page title=\"P\"><command title=\"B\" command=\"b\"/>"
                              "<group title=\"Other\" id=\"g\"><group title=\"H\"/></group>"
                              "<group title=\"G\"/></page>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    QCOMPARE(tree(model), (QStringList{u"page P"_s, u"  group G"_s, u"    command A [a]"_s, u"    group H"_s,
                                       u"  command B [b]"_s, u"  group G"_s, u"page Q"_s}));
}

void TstNavigationReader::id_and_title_are_one_name_space()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"/>"));
    folder().write(u"b.xml"_s, navigation("<page title=\"Q\" id=\"P\"><group title=\"G\"/></page>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    QCOMPARE(tree(model), (QStringList{u"page P"_s, u"  group G"_s}));
}

void TstNavigationReader::first_file_names_and_later_ones_complete()
{
    folder().write(u"a.xml"_s,
                   navigation("<page title=\"P\" tip=\"first\"/><page title=\"Q\" icon=\"square.svg\"/>"));
    folder().write(u"b.xml"_s, navigation("<page title=\"P\" tip=\"second\" icon=\"square.svg\"/>"
                                          "<page title=\"Q\" tip=\"second\"/>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    const QModelIndex p = model.index(0, 0);
    QCOMPARE(p.data(NavigationRole::Tip).toString(), u"first"_s);
    QCOMPARE(p.data(NavigationRole::IconName).toString(), u"square.svg"_s);
    QCOMPARE(middle(model), QColor(0x33, 0xaa, 0x77));
    const QModelIndex q = model.index(1, 0);
    QCOMPARE(q.data(NavigationRole::Tip).toString(), u"second"_s);
    QCOMPARE(q.data(NavigationRole::IconName).toString(), u"square.svg"_s);
}

void TstNavigationReader::titles_and_tips_are_translated_and_ids_are_not()
{
    const MarkingTranslator marker("Navigation");
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"/>"));
    folder().write(u"b.xml"_s, navigation("<page title=\"P\" tip=\" one\n tip \">"
                                          "<command title=\"C\" command=\"c\" usage=\"c [D]\"/></page>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    QCOMPARE(tree(model), (QStringList{u"page <P>"_s, u"  command <C> [c]"_s}));
    const QModelIndex page = model.index(0, 0);
    QCOMPARE(page.data(NavigationRole::Tip).toString(), u"<one tip>"_s);
    QCOMPARE(model.index(0, 0, page).data(NavigationRole::Usage).toString(), u"c [D]"_s);
}

void TstNavigationReader::component_of_a_merged_group_is_told()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"/><page title=\"Q\" component=\"mesher\"/>"));
    folder().write(u"b.xml"_s,
                   navigation("\n<page title=\"P\" component=\"mesher\"><group title=\"G\"/></page>"
                              "<page title=\"Q\" component=\"mesher\"/>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model),
             QStringList{u"b.xml:2:1: component \"mesher\" of <page> \"P\" is not that of an earlier file; "
                         "expected it at the entries inside"_s});
    QCOMPARE(tree(model), (QStringList{u"page P"_s, u"  group G"_s, u"page Q"_s}));
    QCOMPARE(model.index(0, 0).data(NavigationRole::Component).toString(), QString());
}

void TstNavigationReader::duplicate_command_of_another_file_is_told()
{
    const QByteArray before = "<page title=\"P\">\n<command title=\"C\" command=\"";
    folder().write(u"a.xml"_s, navigation(before + "a\"/></page>"));
    folder().write(u"b.xml"_s, navigation(before + "b\"/></page>"));
    NavigationModel model(nullptr);
    QStringList told = folder().read(&model);
    told.replaceInStrings(folder().path() + u'/', QString());
    QCOMPARE(told, QStringList{u"b.xml:2:1: duplicate id \"C\" in <page>; "
                               "<command> of line 2 in a.xml stands, this one is left out"_s});
    QCOMPARE(tree(model), (QStringList{u"page P"_s, u"  command C [a]"_s}));
}

void TstNavigationReader::command_and_group_of_one_id_do_not_merge()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"><command title=\"C\" command=\"c\"/></page>"));
    folder().write(u"b.xml"_s,
                   navigation("<page title=\"P\">\n<group title=\"C\"><group title=\"G\"/></group></page>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model),
             QStringList{u"b.xml:2:1: duplicate id \"C\" in <page>; "
                         "<command> of line 1 in a.xml stands, this one is left out"_s});
    QCOMPARE(tree(model), (QStringList{u"page P"_s, u"  command C [c]"_s}));
}

void TstNavigationReader::broken_file_does_not_stop_the_next()
{
    folder().write(u"a.xml"_s, "<navigation version=\"1\"><page title=\"P\"><group title=\"G\">");
    folder().write(u"b.xml"_s,
                   navigation("<page title=\"P\"><group title=\"G\"><group title=\"H\"/></group></page>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model).size(), 1);
    QCOMPARE(tree(model), (QStringList{u"page P"_s, u"  group G"_s, u"    group H"_s}));
}

void TstNavigationReader::only_the_extension_is_read()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"/>"));
    folder().write(u"b.xml~"_s, "junk");
    folder().write(u"c.XML"_s, "junk");
    folder().write(u"dxml"_s, "junk");
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
    QCOMPARE(tree(model), QStringList{u"page P"_s});
}

void TstNavigationReader::hidden_files_are_not_read()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"/>"));
    folder().write(u".a.xml"_s, "junk");
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
}

void TstNavigationReader::folder_with_the_extension_is_not_read()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"/>"));
    QVERIFY(QDir(folder().path()).mkdir(u"b.xml"_s));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList());
}

void TstNavigationReader::missing_directory_is_told()
{
    NavigationModel model(nullptr);
    NavigationReader reader;
    reader.setModel(&model, nullptr, nullptr);
    reader.buildNavigation(folder().path(u"missing"_s), u".xml"_s);
    QCOMPARE(reader.messages, QStringList{folder().path(u"missing"_s) + u": the directory does not exist"_s});
}

void TstNavigationReader::empty_directory_name_is_told()
{
    NavigationModel model(nullptr);
    NavigationReader reader;
    reader.setModel(&model, nullptr, nullptr);
    reader.buildNavigation(QString(), u".xml"_s);
    QCOMPARE(reader.messages, QStringList{u": the directory does not exist"_s});
}

void TstNavigationReader::file_instead_of_directory_is_told()
{
    folder().write(u"a.xml"_s, navigation(""));
    NavigationModel model(nullptr);
    NavigationReader reader;
    reader.setModel(&model, nullptr, nullptr);
    reader.buildNavigation(folder().path(u"a.xml"_s), u".xml"_s);
    QCOMPARE(reader.messages, QStringList{folder().path(u"a.xml"_s) + u": it is not a directory"_s});
}

void TstNavigationReader::directory_without_files_is_told()
{
    folder().write(u"a.txt"_s, "junk");
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList{folder().path() + u": no file ends in \".xml\""_s});
}

void TstNavigationReader::link_to_nowhere_is_told()
{
    QVERIFY(QFile::link(folder().path(u"gone"_s), folder().path(u"a.xml"_s)));
    folder().write(u"b.xml"_s, navigation("<page title=\"P\"/>"));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList{u"a.xml: the file cannot be read: it does not exist"_s});
    QCOMPARE(tree(model), QStringList{u"page P"_s});
}

void TstNavigationReader::pipe_is_told()
{
    QCOMPARE(mkfifo(QFile::encodeName(folder().path(u"a.xml"_s)).constData(), 0600), 0);
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model),
             QStringList{u"a.xml: the file cannot be read: it is not a regular file"_s});
}

namespace {

/** Runs @p action as a user without special rights, in @p directory, since what is above it may be closed. */
template <class Action>
void as_plain_user(const QString& directory, const Action& action)
{
    const QString before = QDir::currentPath();
    const auto back = qScopeGuard([&] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(directory));
    const bool root = geteuid() == 0;
    if (root)
        QCOMPARE(setresuid(65534, 65534, 0), 0);
    const auto root_again = qScopeGuard([&] {
        if (root)
            QCOMPARE(setresuid(0, 0, 0), 0);
    });
    action();
}

} // namespace

void TstNavigationReader::file_without_permission_is_told()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"/>"));
    folder().write(u"b.xml"_s, navigation("<page title=\"Q\"/>"));
    QCOMPARE(chmod(QFile::encodeName(folder().path()).constData(), 0755), 0);
    QCOMPARE(chmod(QFile::encodeName(folder().path(u"a.xml"_s)).constData(), 0), 0);
    QCOMPARE(chmod(QFile::encodeName(folder().path(u"b.xml"_s)).constData(), 0644), 0);
    NavigationModel model(nullptr);
    NavigationReader reader;
    reader.setModel(&model, nullptr, nullptr);
    as_plain_user(folder().path(), [&] { reader.buildNavigation(u"."_s, u".xml"_s); });
    QCOMPARE(reader.messages, QStringList{u"./a.xml: the file cannot be read: Permission denied"_s});
    QCOMPARE(tree(model), QStringList{u"page Q"_s});
}

void TstNavigationReader::directory_without_permission_is_told()
{
    QVERIFY(QDir(folder().path()).mkdir(u"closed"_s));
    QCOMPARE(chmod(QFile::encodeName(folder().path()).constData(), 0755), 0);
    QCOMPARE(chmod(QFile::encodeName(folder().path(u"closed"_s)).constData(), 0), 0);
    NavigationModel model(nullptr);
    NavigationReader reader;
    reader.setModel(&model, nullptr, nullptr);
    as_plain_user(folder().path(), [&] { reader.buildNavigation(u"closed"_s, u".xml"_s); });
    QCOMPARE(reader.messages, QStringList{u"closed: the directory cannot be read"_s});
    QCOMPARE(chmod(QFile::encodeName(folder().path(u"closed"_s)).constData(), 0755), 0);
}

void TstNavigationReader::read_error_is_told()
{
    // Opens like any file, but its first page belongs to nobody.
    QVERIFY(QFile::link(u"/proc/self/mem"_s, folder().path(u"a.xml"_s)));
    NavigationModel model(nullptr);
    QCOMPARE(folder().read(&model), QStringList{u"a.xml: the file cannot be read: Input/output error"_s});
}

void TstNavigationReader::null_model_reads_nothing()
{
    folder().write(u"a.xml"_s, "junk");
    NavigationReader reader;
    reader.messages << u"old"_s;
    QSet<NavigationNode*> nodes;
    reader.setModel(nullptr, &nodes, nullptr);
    reader.buildNavigation(folder().path(), u".xml"_s);
    QCOMPARE(reader.messages, QStringList());
    QVERIFY(nodes.isEmpty());
}

void TstNavigationReader::reading_again_starts_over()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"/><x/>"));
    NavigationModel model(nullptr);
    NavigationReader reader;
    QSet<NavigationNode*> nodes;
    QMap<NavigationNode*, QString> titles;
    reader.setModel(&model, &nodes, &titles);
    for (int time = 0; time < 2; ++time) {
        reader.buildNavigation(folder().path(), u".xml"_s);
        QCOMPARE(tree(model), QStringList{u"page P"_s});
        QCOMPARE(reader.messages.size(), 1);
        QCOMPARE(nodes.size(), 1);
        QCOMPARE(titles.size(), 1);
    }
    reader.buildNavigation(folder().path(u"missing"_s), u".xml"_s);
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(nodes.isEmpty());
    QVERIFY(titles.isEmpty());
}

void TstNavigationReader::nodes_and_titles_are_handed_out()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\"><group title=\"G\"/></page>"));
    NavigationModel model(nullptr);
    NavigationReader reader;
    QSet<NavigationNode*> nodes;
    QMap<NavigationNode*, QString> titles;
    reader.setModel(&model, &nodes, &titles);
    reader.buildNavigation(folder().path(), u".xml"_s);
    auto* page = static_cast<NavigationNode*>(model.item(0));
    auto* group = static_cast<NavigationNode*>(page->child(0));
    QCOMPARE(nodes, (QSet<NavigationNode*>{page, group}));
    QCOMPARE(titles, (QMap<NavigationNode*, QString>{{page, u"P"_s}, {group, u"G"_s}}));
}

void TstNavigationReader::without_resources_every_entry_is_enabled()
{
    folder().write(u"a.xml"_s, navigation("<page title=\"P\" component=\"mesher\"/>"));
    NavigationModel model(nullptr);
    folder().read(&model);
    QVERIFY(model.item(0)->isEnabled());
}

void TstNavigationReader::with_resources_entries_wait_for_their_component()
{
    folder().write(u"a.xml"_s,
                   navigation("<page title=\"P\"><command title=\"A\" command=\"a\" component=\"mesher\"/>"
                              "<command title=\"B\" command=\"b\"/></page>"));
    NavigationModel model(nullptr);
    NavigationResourcesDelay resources;
    NavigationReader reader;
    reader.setResources(&resources);
    reader.setModel(&model, nullptr, nullptr);
    reader.buildNavigation(folder().path(), u".xml"_s);
    QVERIFY(model.item(0)->isEnabled());
    QVERIFY(!model.item(0)->child(0)->isEnabled());
    QVERIFY(model.item(0)->child(1)->isEnabled());

    set_component_loaded(u"mesher"_s, true);
    reader.buildNavigation(folder().path(), u".xml"_s);
    QVERIFY(model.item(0)->child(0)->isEnabled());
}

OSTREL_TEST(TstNavigationReader)

#include "tst_navigationreader.moc"
