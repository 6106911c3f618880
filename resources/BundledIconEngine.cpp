// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "resources/BundledIconEngine.h"

#include "resources/drawn_icons.h"

#include <QApplication>
#include <QDataStream>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/** Null if the build has not drawn it. */
QImage drawn_ahead(const QString& path, const QSize& size)
{
    static const auto directory = u":/ostrelgui/images/light/"_s;
    for (const DrawnIcon& icon : drawn_icons()) {
        if (size == QSize(icon.side, icon.side) && path.startsWith(directory) &&
            QStringView(path).mid(directory.size()) == QLatin1StringView(icon.name)) {
            const auto* bytes = reinterpret_cast<const uchar*>(icon.pixels);
            // Pictures may outlive the library.
            return QImage(bytes, icon.side, icon.side, QImage::Format_ARGB32_Premultiplied).copy();
        }
    }
    return {};
}

QImage read(const QString& path, const QSize& size)
{
    QImageReader reader(path);
    reader.setScaledSize(reader.size().scaled(size, Qt::KeepAspectRatio));
    return reader.read();
}

QPixmap draw(const QString& path, const QSize& size, QIcon::Mode mode)
{
    const QImage ahead = drawn_ahead(path, size);
    const QPixmap picture = QPixmap::fromImage(ahead.isNull() ? read(path, size) : ahead);
    if (picture.isNull())
        return picture;
    QStyleOption option;
    option.palette = QGuiApplication::palette();
    const QPixmap generated = QApplication::style()->generatedIconPixmap(mode, picture, &option);
    return generated.isNull() ? picture : generated;
}

/** The size in device-independent pixels that is asked for: Qt 6.8 says that, earlier versions device pixels.
 */
QSize independent_size(const QIconEngine::ScaledPixmapArgument& asked)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    return asked.size;
#else
    return (QSizeF(asked.size) / asked.scale).toSize();
#endif
}

} // namespace

BundledIconEngine::BundledIconEngine(const QString& path) : mPath(path) {}

BundledIconEngine::BundledIconEngine(const QString& path, const QIcon& disabled, const QSize& size)
    : mPath(path), mAdded{{QIcon::Disabled, QIcon::Off, QPixmap(), disabled, size}}
{}

void BundledIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state)
{
    const qreal ratio = painter->device() ? painter->device()->devicePixelRatio() : 1.0;
    painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
}

QPixmap BundledIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    if (!mComposed.isNull())
        return mComposed.pixmap(size, 1.0, mode, state);
    if (const QPixmap picture = added(size, mode, state); !picture.isNull())
        return picture;
    if (size.isEmpty())
        return {};
    // The style draws the other modes in colors of the palette.
    const QString key = u"ostrel-icon %1 %2x%3 %4 %5"_s.arg(mPath)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(mode)
                            .arg(QGuiApplication::palette().cacheKey());
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = draw(mPath, size, mode);
        if (!picture.isNull())
            QPixmapCache::insert(key, picture);
    }
    return picture;
}

QSize BundledIconEngine::actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    const QPixmap picture = pixmap(size, mode, state);
    return picture.isNull() ? QSize() : picture.size();
}

QList<QSize> BundledIconEngine::availableSizes(QIcon::Mode mode, QIcon::State state)
{
    // A drawing has none of its own.
    return mComposed.availableSizes(mode, state);
}

bool BundledIconEngine::isNull()
{
    return false;
}

void BundledIconEngine::addPixmap(const QPixmap& pixmap, QIcon::Mode mode, QIcon::State state)
{
    if (mComposed.isNull())
        mAdded.append({mode, state, pixmap, QIcon(), QSize()});
    else
        mComposed.addPixmap(pixmap, mode, state);
}

void BundledIconEngine::addFile(const QString& file, const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    if (mComposed.isNull())
        mComposed = compose();
    mComposed.addFile(file, size, mode, state);
}

QIconEngine* BundledIconEngine::clone() const
{
    return new BundledIconEngine(*this);
}

QString BundledIconEngine::key() const
{
    return u"svg"_s;
}

bool BundledIconEngine::write(QDataStream& out) const
{
    QByteArray written;
    QDataStream buffer(&written, QDataStream::ReadWrite);
    buffer.setVersion(out.version());
    buffer << (mComposed.isNull() ? compose() : mComposed);
    // QIcon writes the key, which is ours as well and has been written, before its engine writes the rest.
    buffer.device()->seek(0);
    QString key;
    buffer >> key;
    const QByteArray rest = buffer.device()->readAll();
    return out.writeRawData(rest.constData(), int(rest.size())) == rest.size();
}

void BundledIconEngine::virtual_hook(int id, void* data)
{
    if (id != ScaledPixmapHook || mComposed.isNull()) {
        QIconEngine::virtual_hook(id, data);
        return;
    }
    // Qt's engine chooses among the pictures that were added by their scales, too.
    auto& asked = *static_cast<ScaledPixmapArgument*>(data);
    asked.pixmap = mComposed.pixmap(independent_size(asked), asked.scale, asked.mode, asked.state);
}

QIcon BundledIconEngine::compose() const
{
    QIcon icon(mPath);
    for (const Added& addition : mAdded)
        icon.addPixmap(addition.drawn(), addition.mode, addition.state);
    return icon;
}

QPixmap BundledIconEngine::added(const QSize& size, QIcon::Mode mode, QIcon::State state) const
{
    const auto last = std::find_if(mAdded.crbegin(), mAdded.crend(), [mode, state](const Added& addition) {
        return addition.mode == mode && addition.state == state;
    });
    if (last == mAdded.crend())
        return {};
    // Without drawing it for nothing.
    const QSize own =
        last->picture.isNull() ? last->size * qGuiApp->devicePixelRatio() : last->picture.size();
    return own == size ? last->drawn() : QPixmap();
}
