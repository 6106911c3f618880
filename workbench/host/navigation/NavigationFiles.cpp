// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/NavigationFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPoint>
#include <QScopedValueRollback>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** How many groups may stand in each other. More than anyone can find a way through, and few enough that a
 * damaged file cannot exhaust the stack. */
constexpr int DeepestGroup = 16;
/** How many troubles of one file are told; the rest is counted. */
constexpr int MostTroubles = 50;

constexpr QLatin1StringView Navigation("navigation");
constexpr QLatin1StringView Version("version");
constexpr QLatin1StringView SupportedVersion("1");

constexpr QLatin1StringView PlaceAttributes[] = {"id"_L1, "title"_L1, "icon"_L1, "tip"_L1, "component"_L1};
constexpr QLatin1StringView CommandAttributes[] = {"id"_L1,    "title"_L1,     "icon"_L1,   "tip"_L1,
                                                   "usage"_L1, "component"_L1, "command"_L1};

QLatin1StringView element_name(NavigationKind kind)
{
    switch (kind) {
    case NavigationKind::Page:
        return "page"_L1;
    case NavigationKind::Group:
        return "group"_L1;
    case NavigationKind::Command:
        break;
    }
    return "command"_L1;
}

QString element(QAnyStringView name)
{
    return u'<' + name.toString() + u'>';
}

/** What the user reads for a title or tip; that of a file of the workbench's own may be translated. */
QString translated(const QString& text)
{
    return text.isEmpty() ? text : QCoreApplication::translate("Navigation", text.toUtf8().constData());
}

/** @p text as it is quoted in a message: on one line, and short. */
QString quoted(const QString& text)
{
    constexpr int longest = 60;
    const QString line = text.simplified();
    return u'"' + (line.size() > longest ? line.left(longest) + u"..."_s : line) + u'"';
}

/** What may stand in an entry of the kind @p kind, or in the root element (null). */
QString expected_elements(const NavigationNode* parent)
{
    return parent ? u"<group> or <command>"_s : u"<page>"_s;
}

QString parent_name(const NavigationNode* parent)
{
    return parent ? element(element_name(parent->kind())) : element(Navigation);
}

/** Column and line of the first bytes of @p device that are no letter of UTF-8; null if there are none, or if
 * the file says that it has another @p encoding. The XML reader tells only how far it had come. */
QPoint first_wrong_letter(QIODevice& device, QStringView encoding)
{
    if (!device.seek(0) || !(encoding.isEmpty() || encoding.compare("UTF-8"_L1, Qt::CaseInsensitive) == 0))
        return {};
    const QByteArray mark = device.peek(2);
    if (mark == "\xfe\xff" || mark == "\xff\xfe") // UTF-16
        return {};
    for (int line = 1; !device.atEnd(); ++line) {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString text = decoder.decode(device.readLine());
        if (decoder.hasError())
            return {static_cast<int>(text.indexOf(QChar::ReplacementCharacter)) + 1, line};
    }
    return {};
}

} // namespace

NavigationFiles::NavigationFiles(QStringList* messages) : mMessages(messages) {}

NavigationFiles::~NavigationFiles() = default;

std::vector<std::unique_ptr<NavigationNode>> NavigationFiles::take_pages()
{
    return std::exchange(mPages, {});
}

void NavigationFiles::read(const QString& path)
{
    mPath = path;
    const QFileInfo info(path);
    // Opening a pipe would wait for whoever writes into it.
    if (!info.exists())
        return tell_unreadable(u"it does not exist"_s);
    if (!info.isFile())
        return tell_unreadable(u"it is not a regular file"_s);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return tell_unreadable(file.errorString());
    read(file, path);
}

void NavigationFiles::read(QIODevice& device, const QString& path)
{
    mPath = path;
    mTroubles = 0;
    QXmlStreamReader xml(&device);
    const QScopedValueRollback<QXmlStreamReader*> reading(mXml, &xml);
    read_root();

    if (const auto* file = qobject_cast<QFileDevice*>(&device); file && file->error() != QFileDevice::NoError)
        tell_unreadable(file->errorString());
    else if (device.size() == 0)
        tell_at(1, 1, u"the file is empty"_s);
    else if (xml.hasError())
        tell_xml_error(device);
    if (mTroubles > MostTroubles)
        mMessages->append(u"%1: %2 further troubles are not told"_s.arg(
            QDir::toNativeSeparators(mPath), QString::number(mTroubles - MostTroubles)));
}

void NavigationFiles::read_root()
{
    mEncoding.clear();
    mXml->readNext();
    // The reader forgets it with the next token.
    if (mXml->isStartDocument())
        mEncoding = mXml->documentEncoding().toString();
    if (mXml->hasError() || !mXml->readNextStartElement())
        return;
    // White space before the root element is no token, so its beginning is not known.
    mLine = mXml->lineNumber();
    mColumn = mXml->columnNumber() + 1;
    if (mXml->qualifiedName() != Navigation) {
        tell(u"unexpected root element "_s + quoted(mXml->qualifiedName().toString()) + u"; expected "_s +
             element(Navigation));
        return;
    }
    check_attributes(Navigation, {&Version, 1});
    if (!mXml->attributes().hasAttribute(Version)) {
        tell(u"missing attribute \"version\" in <navigation>; the file is read as version \"1\""_s);
    } else if (attribute(Version) != SupportedVersion) {
        tell(u"unsupported version "_s + quoted(attribute(Version)) + u"; expected \"1\""_s);
        return;
    }
    read_contents(nullptr, 0);
    // What follows the root element may break the file, too.
    while (!mXml->atEnd())
        mXml->readNext();
}

void NavigationFiles::read_contents(NavigationNode* parent, int depth)
{
    constexpr NavigationKind top[] = {NavigationKind::Page};
    constexpr NavigationKind inner[] = {NavigationKind::Group, NavigationKind::Command};
    const std::span<const NavigationKind> expected = parent ? std::span<const NavigationKind>(inner) : top;
    while (next()) {
        if (mXml->isEndElement())
            return;
        if (mXml->isEntityReference() || (mXml->isCharacters() && !mXml->isWhitespace()))
            tell(u"unexpected text in "_s + parent_name(parent) + u"; expected "_s +
                 expected_elements(parent));
        if (!mXml->isStartElement())
            continue;

        const auto kind = std::ranges::find_if(
            expected, [this](NavigationKind each) { return mXml->qualifiedName() == element_name(each); });
        if (kind != expected.end()) {
            read_entry(parent, *kind, depth);
            continue;
        }
        tell(u"unknown element "_s + quoted(mXml->qualifiedName().toString()) + u" in "_s +
             parent_name(parent) + u"; expected "_s + expected_elements(parent));
        mXml->skipCurrentElement();
    }
}

void NavigationFiles::read_entry(NavigationNode* parent, NavigationKind kind, int depth)
{
    check_attributes(element_name(kind),
                     kind == NavigationKind::Command ? Names(CommandAttributes) : Names(PlaceAttributes));
    NavigationNode* node = nullptr;
    if (kind == NavigationKind::Group && depth > DeepestGroup)
        tell(u"groups stand in each other more than %1 deep; this one is left out"_s.arg(DeepestGroup));
    else if (attribute("title"_L1).isEmpty())
        tell(u"missing attribute \"title\" in "_s + element(element_name(kind)) + u"; it is left out"_s);
    else
        node = merged(parent, kind);

    if (!node) {
        mXml->skipCurrentElement();
        return;
    }
    if (kind != NavigationKind::Command) {
        read_contents(node, depth + 1);
        return;
    }
    while (next() && !mXml->isEndElement()) {
        if (mXml->isComment() || mXml->isProcessingInstruction() || mXml->isWhitespace())
            continue;
        tell(u"unexpected contents in <command>; expected nothing"_s);
        if (mXml->isStartElement())
            mXml->skipCurrentElement();
    }
}

/** The node for the element just begun: a new one, or that of an earlier file. Null if it must be left out.
 */
NavigationNode* NavigationFiles::merged(NavigationNode* parent, NavigationKind kind)
{
    const QString own_id = attribute("id"_L1);
    const QString id = own_id.isEmpty() ? attribute("title"_L1) : own_id;
    const auto known = mEntries.find({parent, id});
    if (known == mEntries.end()) {
        std::unique_ptr<NavigationNode> created = new_node(kind);
        if (!created)
            return nullptr;
        NavigationNode* node = created.get();
        if (parent)
            parent->appendRow(created.release());
        else
            mPages.push_back(std::move(created));
        mEntries.insert({parent, id}, {node, mPath, mLine});
        return node;
    }
    if (known->path == mPath || kind == NavigationKind::Command || known->node->kind() != kind) {
        tell(u"duplicate id %1 in %2; %3 of line %4 in %5 stands, this one is left out"_s.arg(
            quoted(id), parent_name(parent), element(element_name(known->node->kind())),
            QString::number(known->line), QDir::toNativeSeparators(known->path)));
        return nullptr;
    }
    // The first file has named the entry; later ones may only complete what it left open.
    known->path = mPath;
    known->line = mLine;
    const std::unique_ptr<NavigationNode> other = new_node(kind);
    const QString component = attribute("component"_L1);
    if (!component.isEmpty() && component != known->node->data(NavigationRole::Component).toString())
        tell(u"component %1 of %2 %3 is not that of an earlier file; expected it at the entries inside"_s.arg(
            quoted(component), element(element_name(kind)), quoted(id)));
    if (known->node->data(NavigationRole::Tip).toString().isEmpty())
        known->node->setData(other->data(NavigationRole::Tip), NavigationRole::Tip);
    if (known->node->data(NavigationRole::IconName).toString().isEmpty()) {
        known->node->setData(other->data(NavigationRole::IconName), NavigationRole::IconName);
        known->node->set_picture(other->picture());
    }
    return known->node;
}

/** A node with what the attributes of the element just begun say; null if something needed is missing. */
std::unique_ptr<NavigationNode> NavigationFiles::new_node(NavigationKind kind)
{
    auto node = std::make_unique<NavigationNode>(kind, translated(attribute("title"_L1)));
    const auto set = [&node](int role, const QString& value) {
        if (!value.isEmpty())
            node->setData(value, role);
    };
    if (kind == NavigationKind::Command) {
        // Blanks inside the line are the user's.
        const QString command = mXml->attributes().value("command"_L1).toString().trimmed();
        if (command.isEmpty()) {
            tell(u"missing attribute \"command\" in <command>; it is left out"_s);
            return nullptr;
        }
        if (command.contains(u'\n') || command.contains(u'\r')) {
            tell(u"attribute \"command\" holds a line break; expected one line, it is left out"_s);
            return nullptr;
        }
        set(NavigationRole::Command, command);
        set(NavigationRole::Usage, attribute("usage"_L1));
    }
    set(NavigationRole::Tip, translated(attribute("tip"_L1)));
    set(NavigationRole::Component, attribute("component"_L1));
    const QString icon = attribute("icon"_L1);
    set(NavigationRole::IconName, icon);
    if (const QString file = icon_file(icon); !file.isEmpty()) {
        std::shared_ptr<NavigationPicture>& picture = mPictures[file];
        if (!picture)
            picture = std::make_shared<NavigationPicture>(file);
        node->set_picture(picture);
    }
    return node;
}

/** Tells of the attributes that the element just begun, @p name, must not have. */
void NavigationFiles::check_attributes(QLatin1StringView name, Names known)
{
    const QXmlStreamAttributes attributes = mXml->attributes();
    for (const QXmlStreamAttribute& each : attributes) {
        // Attributes of a namespace are notes of other programs.
        if (!each.namespaceUri().isEmpty() ||
            std::ranges::any_of(known, [&](QLatin1StringView one) { return each.qualifiedName() == one; }))
            continue;
        QStringList names(known.begin(), known.end());
        const QString last = names.takeLast();
        tell(u"unknown attribute "_s + quoted(each.qualifiedName().toString()) + u" in "_s + element(name) +
             u"; expected "_s + (names.isEmpty() ? last : names.join(u", "_s) + u" or "_s + last));
    }
}

/** The file of the picture @p name: that of the shell, or one given relative to the file being read. Empty if
 * there is none. */
QString NavigationFiles::icon_file(const QString& name)
{
    if (name.isEmpty())
        return {};
    if (QDir::isAbsolutePath(name)) {
        tell(u"absolute path "_s + quoted(name) +
             u" in attribute \"icon\"; expected a name or a relative path"_s);
        return {};
    }
    const QString bundle = u":/ostrelgui/images/light"_s;
    if (QFileInfo(bundle + u'/' + name).isFile())
        return bundle + u'/' + name;
    QString own = QFileInfo(mPath).dir().filePath(name);
    if (QFileInfo(own).isFile())
        return own;
    // A program without the shell has none of its pictures; that is no fault of the file.
    if (name.contains(u'/') || QFileInfo(bundle).isDir())
        tell(u"no icon "_s + quoted(name) + u" among the shell's images or beside the file"_s);
    return {};
}

/** Goes to the next token and remembers where it begins. False when there is none. */
bool NavigationFiles::next()
{
    // The reader has looked at the first character of whatever ends a text.
    const bool behind_text = mXml->isCharacters() && !mXml->isCDATA();
    mLine = mXml->lineNumber();
    mColumn = mXml->columnNumber() + (behind_text ? 0 : 1);
    mXml->readNext();
    return !mXml->atEnd();
}

QString NavigationFiles::attribute(QLatin1StringView name) const
{
    return mXml->attributes().value(name).toString().simplified();
}

void NavigationFiles::tell(const QString& trouble)
{
    tell_at(mLine, mColumn, trouble);
}

void NavigationFiles::tell_at(qint64 line, qint64 column, const QString& trouble)
{
    if (++mTroubles <= MostTroubles)
        mMessages->append(u"%1:%2:%3: %4"_s.arg(QDir::toNativeSeparators(mPath), QString::number(line),
                                                QString::number(column), trouble));
}

void NavigationFiles::tell_xml_error(QIODevice& device)
{
    const QPoint wrong = first_wrong_letter(device, mEncoding);
    if (wrong.isNull())
        tell_at(mXml->lineNumber(), mXml->columnNumber() + 1,
                u"not well-formed: "_s + mXml->errorString().simplified());
    else
        tell_at(wrong.y(), wrong.x(), u"not well-formed: the text is not UTF-8"_s);
}

void NavigationFiles::tell_unreadable(const QString& reason)
{
    mMessages->append(u"%1: the file cannot be read: %2"_s.arg(QDir::toNativeSeparators(mPath), reason));
}

} // namespace fennar
