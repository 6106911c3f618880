// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QIconEngine>

/**
 * The engine behind an icon of the bundle. The icon looks and behaves as QIcon made from the same file, but
 * the file is read when a picture is first asked for, and once for each picture.
 *
 * QIcon itself reads an SVG file twice when it is made, whether or not it is ever shown, and once more for
 * each picture. The windows come up with dozens of icons, most of them in menus that are not open.
 *
 * Pictures are kept in QPixmapCache, where all icons of the same file share them.
 */
class BundledIconEngine : public QIconEngine
{
public:
    /** @param path  an SVG file that exists. */
    explicit BundledIconEngine(const QString& path);
    /**
     * As if the picture of @p disabled in @p size had been added for the mode QIcon::Disabled, but it is
     * drawn when it is first asked for.
     */
    BundledIconEngine(const QString& path, const QIcon& disabled, const QSize& size);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    /** @param size  in device pixels; the picture keeps the proportions of the drawing within it. */
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    bool isNull() override;

    void addPixmap(const QPixmap& pixmap, QIcon::Mode mode, QIcon::State state) override;
    void addFile(const QString& file, const QSize& size, QIcon::Mode mode, QIcon::State state) override;

    QIconEngine* clone() const override;
    /** The key of Qt's own engine for SVG files, which reads what write() has written. */
    QString key() const override;
    bool write(QDataStream& out) const override;
    void virtual_hook(int id, void* data) override;

private:
    /** A picture that shows at its own size only: @p picture, or, if that is null, what @p icon draws. */
    struct Added
    {
        QPixmap drawn() const { return picture.isNull() ? icon.pixmap(size) : picture; }

        QIcon::Mode mode;
        QIcon::State state;
        QPixmap picture;
        QIcon icon;
        QSize size;
    };

    /** The icon that Qt makes of the file and of what has been added. */
    QIcon compose() const;
    QPixmap added(const QSize& size, QIcon::Mode mode, QIcon::State state) const;

    QString mPath;
    QList<Added> mAdded;
    /** Null until a file is added. From then on all is left to it. */
    QIcon mComposed;
};
