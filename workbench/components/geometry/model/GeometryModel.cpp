// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/model/GeometryModel.h"

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/ShapeKernel.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

void check_length(double length, const QString& what)
{
    if (!(length >= GeometryModel::least_length && length <= GeometryModel::greatest_length))
        throw GeometryError(u"%1 must be from %2 to %3, and is %4"_s.arg(what)
                                .arg(GeometryModel::least_length)
                                .arg(GeometryModel::greatest_length)
                                .arg(length));
}

bool is_near(const Point3& position)
{
    const auto fits = [](double value) { return std::abs(value) <= GeometryModel::farthest; };
    return fits(position.x) && fits(position.y) && fits(position.z);
}

void check_position(const Point3& position, const QString& what)
{
    if (!is_near(position))
        throw GeometryError(u"%1 must be within %2 of the origin"_s.arg(what).arg(GeometryModel::farthest));
}

/** @p vector with the length 1. */
Point3 unit(const Point3& vector)
{
    const double size = length(vector);
    if (!std::isfinite(size) || size < std::numeric_limits<double>::min())
        throw GeometryError(u"a direction must have a length"_s);
    return {vector.x / size, vector.y / size, vector.z / size};
}

/** Returns the shape; throws unless it can be a solid's. */
const Shape& checked(const Shape& shape)
{
    if (shape.empty())
        throw GeometryError(u"the result is no solid"_s);
    const double volume = shape.measures().volume;
    if (!std::isfinite(volume) || !(volume > 0))
        throw GeometryError(u"the result has no volume"_s);
    const Box3 outer = shape.outer_box();
    if (!is_near(outer.least) || !is_near(outer.most)) {
        check_position(shape.box().least, u"the solid"_s);
        check_position(shape.box().most, u"the solid"_s);
    }
    return shape;
}

} // namespace

QList<int> GeometryModel::ids() const
{
    QList<int> result;
    for (const auto& solid : mSolids)
        result << solid.first;
    return result;
}

std::optional<GeometryModel::Solid> GeometryModel::solid(int id) const
{
    const auto found = mSolids.find(id);
    return found == mSolids.end() ? std::nullopt : std::optional(Solid{id, found->second.name});
}

std::optional<GeometryModel::Solid> GeometryModel::find(const QString& name) const
{
    const auto found = mIds.find(name);
    return found == mIds.end() ? std::nullopt : std::optional(Solid{found->second, name});
}

int GeometryModel::brick(const Point3& size, const Point3& center, const QString& name)
{
    check_length(size.x, u"the width"_s);
    check_length(size.y, u"the depth"_s);
    check_length(size.z, u"the height"_s);
    check_position(center, u"the center"_s);
    return make(u"brick"_s, name, [&] { return ShapeKernel::get().brick(size, center); });
}

int GeometryModel::cylinder(double radius, double height, const Point3& center, const Point3& axis,
                            const QString& name)
{
    check_length(radius, u"the radius"_s);
    check_length(height, u"the height"_s);
    check_position(center, u"the center"_s);
    const Point3 up = unit(axis);
    return make(u"cylinder"_s, name, [&] { return ShapeKernel::get().cylinder(radius, height, center, up); });
}

int GeometryModel::sphere(double radius, const Point3& center, const QString& name)
{
    check_length(radius, u"the radius"_s);
    check_position(center, u"the center"_s);
    return make(u"sphere"_s, name, [&] { return ShapeKernel::get().sphere(radius, center); });
}

int GeometryModel::cone(double bottom_radius, double top_radius, double height, const Point3& center,
                        const Point3& axis, const QString& name)
{
    if (bottom_radius != 0 || top_radius == 0)
        check_length(bottom_radius, u"the radius"_s);
    if (top_radius != 0)
        check_length(top_radius, u"the top radius"_s);
    check_length(height, u"the height"_s);
    check_position(center, u"the center"_s);
    const Point3 up = unit(axis);
    return make(u"cone"_s, name, [&] {
        // The kernel knows no cone whose sides do not meet.
        if (std::abs(bottom_radius - top_radius) < least_length / 100)
            return ShapeKernel::get().cylinder(bottom_radius, height, center, up);
        return ShapeKernel::get().cone(bottom_radius, top_radius, height, center, up);
    });
}

int GeometryModel::torus(double radius, double tube_radius, const Point3& center, const Point3& axis,
                         const QString& name)
{
    check_length(radius, u"the radius"_s);
    check_length(tube_radius, u"the radius of the tube"_s);
    if (tube_radius >= radius)
        throw GeometryError(u"the radius of the tube must be less than the radius of the torus"_s);
    check_position(center, u"the center"_s);
    const Point3 up = unit(axis);
    return make(u"torus"_s, name, [&] { return ShapeKernel::get().torus(radius, tube_radius, center, up); });
}

void GeometryModel::move(const QList<int>& ids, const Point3& by)
{
    check_position(by, u"the offset"_s);
    transform(ids, [&by](const Shape& shape) { return shape.moved(by); });
}

void GeometryModel::rotate(const QList<int>& ids, double degrees, const Point3& point, const Point3& axis)
{
    if (!std::isfinite(degrees))
        throw GeometryError(u"the angle must be a number"_s);
    check_position(point, u"the point"_s);
    const Point3 direction = unit(axis);
    const double angle = std::remainder(degrees, 360.0) * std::numbers::pi / 180;
    transform(ids, [&](const Shape& shape) { return shape.rotated(angle, point, direction); });
}

int GeometryModel::copy(int id, const Point3& by, const QString& name)
{
    check_position(by, u"the offset"_s);
    check_ids({id});
    // "plate" gives "plate3", and so does "plate2".
    QString kind = entry(id).name;
    while (kind.size() > 1 && kind.back() >= u'0' && kind.back() <= u'9')
        kind.chop(1);
    return make(kind, name, [&] { return by == Point3() ? shape(id) : shape(id).moved(by); });
}

void GeometryModel::rename(int id, const QString& name)
{
    if (name == entry(id).name)
        return;
    if (name.isEmpty())
        throw GeometryError(u"a name must not be empty"_s);
    check_new_name(name);
    mIds.emplace(name, id);
    mIds.erase(std::exchange(mSolids.at(id).name, name));
    tell(id);
}

void GeometryModel::unite(const QList<int>& ids, const ShapeListener& listener)
{
    combine(ids, u"nothing would be left"_s, &ShapeKernel::united, listener);
}

void GeometryModel::subtract(int id, const QList<int>& tools, const ShapeListener& listener)
{
    combine(QList<int>{id} + tools, u"nothing would be left of \"%1\""_s.arg(entry(id).name),
            &ShapeKernel::subtracted, listener);
}

void GeometryModel::intersect(const QList<int>& ids, const ShapeListener& listener)
{
    combine(ids, u"the solids have nothing in common"_s, &ShapeKernel::intersected, listener);
}

void GeometryModel::remove(const QList<int>& ids)
{
    check_ids(ids);
    for (const int id : ids)
        forget(id);
}

void GeometryModel::set_mesh(std::shared_ptr<const Mesh> mesh)
{
    mMesh = std::move(mesh);
    mState = ++mLastState;
    emit mesh_changed();
}

QList<int> GeometryModel::add(const QList<Shape>& shapes, const QString& name)
{
    if (!is_name(name))
        throw GeometryError(u"\"%1\" cannot name a solid"_s.arg(name));
    for (const Shape& shape : shapes)
        checked(shape);
    const bool as_it_is = shapes.size() == 1 && !mIds.contains(name);
    QList<int> result;
    for (const Shape& shape : shapes)
        result << insert(name, as_it_is ? name : QString(), shape);
    return result;
}

const GeometryModel::Entry& GeometryModel::entry(int id) const
{
    const auto found = mSolids.find(id);
    if (found == mSolids.end())
        throw GeometryError(u"there is no solid %1"_s.arg(id));
    return found->second;
}

void GeometryModel::check_ids(const QList<int>& ids) const
{
    if (ids.isEmpty())
        throw GeometryError(u"no solid was named"_s);
    QList<int> sorted = ids;
    std::sort(sorted.begin(), sorted.end());
    for (const int id : std::as_const(sorted))
        entry(id);
    const auto twice = std::adjacent_find(sorted.cbegin(), sorted.cend());
    if (twice != sorted.cend())
        throw GeometryError(u"\"%1\" was named twice"_s.arg(entry(*twice).name));
}

void GeometryModel::check_new_name(const QString& name) const
{
    if (!is_name(name))
        throw GeometryError(u"\"%1\" cannot name a solid"_s.arg(name));
    if (mIds.contains(name))
        throw GeometryError(u"there is a solid \"%1\" already"_s.arg(name));
}

/** "brick7", or with more behind it if the user has given that name to another solid. */
QString GeometryModel::name_for(const QString& kind, int id) const
{
    const QString name = kind + QString::number(id);
    QString free = name;
    for (int i = 2; mIds.contains(free); ++i)
        free = name + u'_' + QString::number(i);
    return free;
}

template <typename Make>
int GeometryModel::make(const QString& kind, const QString& name, const Make& make_shape)
{
    if (!name.isEmpty())
        check_new_name(name);
    return insert(kind, name, checked(make_shape()));
}

int GeometryModel::insert(const QString& kind, const QString& name, const Shape& shape)
{
    const int id = ++mLastId;
    const Entry solid{name.isEmpty() ? name_for(kind, id) : name, shape};
    mIds.emplace(solid.name, id);
    mSolids.emplace(id, solid);
    ++mRevision;
    tell(id);
    return id;
}

/** Puts the new shapes in the place of the old ones only when all have gone well. */
template <typename Change>
void GeometryModel::transform(const QList<int>& ids, const Change& change)
{
    check_ids(ids);
    QList<Shape> changed;
    for (const int id : ids)
        changed << checked(change(shape(id)));
    for (qsizetype i = 0; i < ids.size(); ++i) {
        if (changed[i] != shape(ids[i]))
            set_shape(ids[i], changed[i]);
    }
}

void GeometryModel::combine(const QList<int>& ids, const QString& nothing_left, Operation operation,
                            const ShapeListener& listener)
{
    check_ids(ids);
    if (ids.size() < 2)
        throw GeometryError(u"another solid is needed"_s);
    QList<Shape> shapes;
    for (const int id : ids)
        shapes << shape(id);
    const qint64 revision = mRevision;
    const Shape result = (ShapeKernel::get().*operation)(shapes, listener);
    if (result.empty())
        throw GeometryError(nothing_left);
    checked(result);
    if (revision != mRevision) // the listener may act
        throw GeometryError(u"the model has changed meanwhile"_s);
    for (const int id : ids.sliced(1))
        forget(id);
    set_shape(ids.first(), result);
}

void GeometryModel::forget(int id)
{
    mIds.erase(entry(id).name);
    mSolids.erase(id);
    ++mRevision;
    tell(id);
}

void GeometryModel::set_shape(int id, const Shape& shape)
{
    mSolids.at(id).shape = shape;
    ++mRevision;
    tell(id);
}

void GeometryModel::tell(int id)
{
    mState = ++mLastState;
    emit solid_changed(id);
}

GeometryModel::Part GeometryModel::part(const QList<int>& ids) const
{
    Part result{{}, mLastId, mMesh, mRevision, mState};
    for (const int id : ids) {
        const auto found = mSolids.find(id);
        result.solids.emplace(id, found == mSolids.end() ? std::nullopt : std::optional(found->second));
    }
    return result;
}

void GeometryModel::restore(const Part& part)
{
    for (const auto& entry : part.solids) {
        if (const auto found = mSolids.find(entry.first); found != mSolids.end())
            mIds.erase(found->second.name);
    }
    for (const auto& [id, solid] : part.solids) {
        mSolids.erase(id);
        if (solid) {
            mIds.emplace(solid->name, id);
            mSolids.emplace(id, *solid);
        }
    }
    mLastId = part.last_id;
    mMesh = part.mesh;
    mRevision = part.revision;
    mState = part.state;
    for (const auto& entry : part.solids)
        emit solid_changed(entry.first);
    emit mesh_changed();
}

GeometryContents GeometryModel::contents() const
{
    GeometryContents result;
    result.last_id = mLastId;
    for (const auto& [id, solid] : mSolids)
        result.solids << GeometryContents::Solid{id, solid.name, solid.shape.brep()};
    result.mesh = mMesh;
    result.mesh_age = mMesh ? mRevision - mMesh->revision : 0;
    return result;
}

qint64 GeometryModel::new_origin()
{
    static qint64 last = 0;
    return ++last;
}

void GeometryModel::replace(const GeometryContents& contents)
{
    std::map<int, Entry> solids;
    std::map<QString, int> ids;
    for (const GeometryContents::Solid& solid : contents.solids) {
        if (solid.id < 1 || solid.id > contents.last_id || !is_name(solid.name) ||
            !ids.emplace(solid.name, solid.id).second ||
            !solids.try_emplace(solid.id, Entry{solid.name, {}}).second)
            throw GeometryError(
                u"the id %1 or the name \"%2\" cannot be that of a solid"_s.arg(solid.id).arg(solid.name));
    }
    for (const GeometryContents::Solid& solid : contents.solids) {
        try {
            solids[solid.id].shape = checked(Shape::from_brep(solid.brep));
        } catch (const GeometryError& error) {
            throw GeometryError(u"the shape of \"%1\": "_s.arg(solid.name) + error.message());
        }
    }

    // Nothing fails from here on.
    mSolids.swap(solids);
    mIds.swap(ids);
    mLastId = contents.last_id;
    mOrigin = new_origin();
    ++mRevision;
    mState = ++mLastState;
    mMesh = nullptr;
    if (contents.mesh) {
        auto mesh = std::make_shared<Mesh>(*contents.mesh);
        mesh->revision = mRevision - contents.mesh_age;
        mMesh = mesh;
    }
    // Those that were there and those that are there now.
    solids.insert(mSolids.begin(), mSolids.end());
    for (const auto& entry : solids)
        emit solid_changed(entry.first);
    emit mesh_changed();
    emit replaced();
}

} // namespace fennar::geometry
