// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/files/write_whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** As many links as the system itself follows. */
constexpr int most_links = 40;

[[noreturn]] void fail(int error)
{
    throw std::system_error(error, std::generic_category());
}

/** Throws if a call of the system has failed. */
int checked(int result)
{
    if (result < 0)
        fail(errno);
    return result;
}

/** An open file; closed at the end, whatever comes. */
class Descriptor
{
public:
    explicit Descriptor(int descriptor) : mDescriptor(descriptor) {}
    ~Descriptor()
    {
        if (mDescriptor >= 0)
            ::close(mDescriptor);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return mDescriptor; }

    void write(const QByteArrayList& parts) const
    {
        for (const QByteArray& part : parts) {
            for (qsizetype done = 0; done < part.size();) {
                const ssize_t count =
                    ::write(mDescriptor, part.constData() + done, std::size_t(part.size() - done));
                if (count < 0 && errno == EINTR)
                    continue;
                if (count < 0)
                    fail(errno);
                done += count;
            }
        }
    }

    /** Waits until the content is on the disk. */
    void sync() const
    {
        // Devices and some file systems cannot do that, which is no failure.
        if (::fsync(mDescriptor) < 0 && errno != EINVAL && errno != EROFS && errno != ENOTSUP)
            fail(errno);
    }

    /** Some file systems tell only now that a write has failed. */
    void close() { checked(::close(std::exchange(mDescriptor, -1))); }

private:
    int mDescriptor;
};

/** What the links at @p path lead to in the end; it need not exist. */
QString without_links(QString path)
{
    for (int i = 0; QFileInfo(path).isSymLink(); ++i) {
        if (i == most_links)
            fail(ELOOP);
        path = QFileInfo(path).symLinkTarget();
    }
    return path;
}

/** A new file beside the one to be written, which vanishes unless it takes that one's place. */
class Neighbor
{
public:
    explicit Neighbor(const QString& directory)
    {
        int descriptor = -1;
        do {
            mName = QFile::encodeName(directory + u"/.fennar-"_s +
                                      QString::number(QRandomGenerator::system()->generate(), 16));
            descriptor = ::open(mName.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        } while (descriptor < 0 && errno == EEXIST);
        mDescriptor.emplace(checked(descriptor));
    }
    ~Neighbor()
    {
        if (!mName.isEmpty())
            ::unlink(mName.constData());
    }
    Neighbor(const Neighbor&) = delete;
    Neighbor& operator=(const Neighbor&) = delete;

    Descriptor& descriptor() { return *mDescriptor; }

    void become(const QByteArray& target)
    {
        checked(std::rename(mName.constData(), target.constData()));
        mName.clear();
    }

private:
    QByteArray mName;
    std::optional<Descriptor> mDescriptor;
};

/** So that the new name, too, outlives a power failure. Where that cannot be done the file is there all the
 * same. */
void sync_directory(const QString& directory)
{
    const Descriptor descriptor(
        ::open(QFile::encodeName(directory).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.get() >= 0)
        ::fsync(descriptor.get());
}

void write_device(const QByteArray& path, const QByteArrayList& parts)
{
    // Without waiting for a reader, should it be a pipe that has none.
    Descriptor device(checked(::open(path.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC)));
    device.write(parts);
    device.sync();
    device.close();
}

void replace(const QString& path, const QByteArrayList& parts)
{
    const QString file = without_links(path);
    const QByteArray name = QFile::encodeName(file);
    struct stat old = {};
    const bool exists = ::stat(name.constData(), &old) == 0;
    if (!exists && errno != ENOENT)
        fail(errno);
    if (exists && S_ISDIR(old.st_mode))
        fail(EISDIR);
    if (exists && !S_ISREG(old.st_mode)) {
        write_device(name, parts);
        return;
    }
    if (exists)
        checked(::faccessat(AT_FDCWD, name.constData(), W_OK, AT_EACCESS));

    const QString directory = QFileInfo(file).absolutePath();
    Neighbor neighbor(directory);
    Descriptor& descriptor = neighbor.descriptor();
    if (exists) {
        // The owner first, since that takes rights away. Only the administrator may do it: a file of somebody
        // else becomes the user's own.
        if (::fchown(descriptor.get(), old.st_uid, old.st_gid) < 0 && errno != EPERM)
            fail(errno);
        checked(::fchmod(descriptor.get(), old.st_mode & 07777));
    }
    descriptor.write(parts);
    descriptor.sync();
    descriptor.close();
    neighbor.become(name);
    sync_directory(directory);
}

} // namespace

QString write_whole_file(const QString& path, const QByteArrayList& parts)
{
    try {
        replace(path, parts);
        return {};
    } catch (const std::system_error& error) {
        return qt_error_string(error.code().value());
    }
}

} // namespace fennar
