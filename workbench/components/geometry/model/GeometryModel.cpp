// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/model/GeometryModel.h"

#include "workbench/components/geometry/exchange/Format.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"

#include <QFile>
#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <cmath>
#include <gmsh.h>
#include <limits>
#include <numbers>
#include <set>

using namespace Qt::StringLiterals;

namespace occ = gmsh::model::occ;

namespace {

/** Runs something of the engine's; whatever it throws becomes a GeometryError. */
template <typename Work>
auto engine(const Work& work)
{
    try {
        return work();
    } catch (const GeometryError&) {
        throw;
    } catch (const std::string& error) { // what older versions of the engine throw
        throw GeometryError(u"the engine refuses: "_s + QString::fromStdString(error));
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        throw GeometryError(u"the engine refuses: "_s + QString::fromUtf8(error.what()));
    } catch (...) {
        throw GeometryError(u"the engine failed for an unknown reason"_s);
    }
}

std::array<double, 3> components(const Vector& vector)
{
    return {vector.x, vector.y, vector.z};
}

void check_length(double length, const QString& what)
{
    if (!(length >= GeometryModel::least_length && length <= GeometryModel::greatest_length))
        throw GeometryError(u"%1 must be from %2 to %3, and is %4"_s.arg(what)
                                .arg(GeometryModel::least_length)
                                .arg(GeometryModel::greatest_length)
                                .arg(length));
}

void check_position(const Vector& position, const QString& what)
{
    for (const double value : components(position)) {
        if (!(std::abs(value) <= GeometryModel::farthest))
            throw GeometryError(
                u"%1 must be within %2 of the origin"_s.arg(what).arg(GeometryModel::farthest));
    }
}

/** @p vector with the length 1. */
Vector unit(const Vector& vector)
{
    const double length = std::hypot(vector.x, vector.y, vector.z);
    if (!std::isfinite(length) || length < std::numeric_limits<double>::min())
        throw GeometryError(u"a direction must have a length"_s);
    return {vector.x / length, vector.y / length, vector.z / length};
}

/** Where a solid of that height begins, so that @p center is its middle. */
Vector bottom(const Vector& center, const Vector& direction, double height)
{
    return {center.x - direction.x * height / 2, center.y - direction.y * height / 2,
            center.z - direction.z * height / 2};
}

double content(const EngineTags& shapes)
{
    double sum = 0;
    for (const auto& [dimension, tag] : shapes) {
        double mass = 0;
        occ::getMass(dimension, tag, mass);
        sum += mass;
    }
    return sum;
}

void bounding_box(const EngineTags& shapes, Vector& least, Vector& most)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    least = {infinity, infinity, infinity};
    most = {-infinity, -infinity, -infinity};
    for (const auto& [dimension, tag] : shapes) {
        Vector a;
        Vector b;
        occ::getBoundingBox(dimension, tag, a.x, a.y, a.z, b.x, b.y, b.z);
        least = {std::min(least.x, a.x), std::min(least.y, a.y), std::min(least.z, a.z)};
        most = {std::max(most.x, b.x), std::max(most.y, b.y), std::max(most.z, b.z)};
    }
}

/** Throws unless the shapes could be a solid of the model. */
void check_shapes(const EngineTags& shapes)
{
    if (shapes.empty() ||
        std::any_of(shapes.begin(), shapes.end(), [](const auto& shape) { return shape.first != 3; }))
        throw GeometryError(u"the result is no solid"_s);
    const double volume = content(shapes);
    if (!std::isfinite(volume) || !(volume > 0))
        throw GeometryError(u"the result has no volume"_s);
    Vector least;
    Vector most;
    bounding_box(shapes, least, most);
    check_position(least, u"the solid"_s);
    check_position(most, u"the solid"_s);
}

EngineTags volumes()
{
    EngineTags shapes;
    occ::getEntities(shapes, 3);
    return shapes;
}

/** All pieces of all solids but the first. */
EngineTags joined_rest(const std::vector<EngineTags>& solids)
{
    EngineTags result;
    for (std::size_t i = 1; i < solids.size(); ++i)
        result.insert(result.end(), solids[i].begin(), solids[i].end());
    return result;
}

/** Removes faces, edges and points that bound no volume: where solids only touch, they have some in common.
 */
void remove_loose_shapes()
{
    for (const int dimension : {2, 1, 0}) {
        EngineTags shapes;
        occ::getEntities(shapes, dimension);
        occ::remove(shapes); // keeps what bounds something
    }
}

/** Whether the file has the last line of the BREP format. */
bool is_whole_brep(const QString& path)
{
    constexpr qint64 longest_end = 64;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(std::max<qint64>(0, file.size() - longest_end)))
        return false;
    return ends_brep(file.readAll());
}

} // namespace

/** A model of the engine that may become a solid; unless it does, it vanishes. */
class GeometryModel::Draft
{
public:
    explicit Draft(int number) : mName("solid-" + std::to_string(number))
    {
        engine([this] { gmsh::model::add(mName); });
    }
    ~Draft()
    {
        if (!mName.empty())
            remove(mName);
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    std::string take() { return std::exchange(mName, {}); }

    static void remove(const std::string& name) noexcept
    {
        try {
            gmsh::model::setCurrent(name);
            gmsh::model::remove();
        } catch (...) {
            // There is no such model any more, and that is what was wanted.
        }
    }

private:
    std::string mName;
};

GeometryModel::GeometryModel() = default;

GeometryModel::~GeometryModel()
{
    for (const auto& solid : mSolids)
        Draft::remove(solid.second.model);
}

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
    if (found == mSolids.end())
        return std::nullopt;
    return Solid{id, found->second.name};
}

std::optional<GeometryModel::Solid> GeometryModel::find(const QString& name) const
{
    const auto found = mIds.find(name);
    if (found == mIds.end())
        return std::nullopt;
    return Solid{found->second, name};
}

SolidMeasures GeometryModel::measures(int id) const
{
    Entry& solid = entry(id);
    if (!solid.measures) {
        solid.measures = engine([&solid] {
            gmsh::model::setCurrent(solid.model);
            const EngineTags shapes = volumes();
            EngineTags faces;
            occ::getEntities(faces, 2);
            SolidMeasures measures;
            measures.volume = content(shapes);
            measures.area = content(faces);
            measures.pieces = int(shapes.size());
            bounding_box(shapes, measures.least, measures.most);
            for (const auto& [dimension, tag] : shapes) {
                Vector center;
                double mass = 0;
                occ::getMass(dimension, tag, mass);
                occ::getCenterOfMass(dimension, tag, center.x, center.y, center.z);
                measures.center.x += center.x * mass / measures.volume;
                measures.center.y += center.y * mass / measures.volume;
                measures.center.z += center.z * mass / measures.volume;
            }
            return measures;
        });
    }
    return *solid.measures;
}

int GeometryModel::brick(const Vector& size, const Vector& center, const QString& name)
{
    check_length(size.x, u"the width"_s);
    check_length(size.y, u"the depth"_s);
    check_length(size.z, u"the height"_s);
    check_position(center, u"the center"_s);
    return make(u"brick"_s, name, [&] {
        occ::addBox(center.x - size.x / 2, center.y - size.y / 2, center.z - size.z / 2, size.x, size.y,
                    size.z);
    });
}

int GeometryModel::cylinder(double radius, double height, const Vector& center, const Vector& axis,
                            const QString& name)
{
    check_length(radius, u"the radius"_s);
    check_length(height, u"the height"_s);
    check_position(center, u"the center"_s);
    const Vector up = unit(axis);
    const Vector from = bottom(center, up, height);
    return make(u"cylinder"_s, name, [&] {
        occ::addCylinder(from.x, from.y, from.z, up.x * height, up.y * height, up.z * height, radius);
    });
}

int GeometryModel::sphere(double radius, const Vector& center, const QString& name)
{
    check_length(radius, u"the radius"_s);
    check_position(center, u"the center"_s);
    return make(u"sphere"_s, name, [&] { occ::addSphere(center.x, center.y, center.z, radius); });
}

int GeometryModel::cone(double bottom_radius, double top_radius, double height, const Vector& center,
                        const Vector& axis, const QString& name)
{
    if (bottom_radius != 0 || top_radius == 0)
        check_length(bottom_radius, u"the radius"_s);
    if (top_radius != 0)
        check_length(top_radius, u"the top radius"_s);
    check_length(height, u"the height"_s);
    check_position(center, u"the center"_s);
    const Vector up = unit(axis);
    const Vector from = bottom(center, up, height);
    return make(u"cone"_s, name, [&] {
        const Vector way{up.x * height, up.y * height, up.z * height};
        // The kernel knows no cone whose sides do not meet.
        if (std::abs(bottom_radius - top_radius) < least_length / 100)
            occ::addCylinder(from.x, from.y, from.z, way.x, way.y, way.z, bottom_radius);
        else
            occ::addCone(from.x, from.y, from.z, way.x, way.y, way.z, bottom_radius, top_radius);
    });
}

int GeometryModel::torus(double radius, double tube_radius, const Vector& center, const Vector& axis,
                         const QString& name)
{
    check_length(radius, u"the radius"_s);
    check_length(tube_radius, u"the radius of the tube"_s);
    if (tube_radius >= radius)
        throw GeometryError(u"the radius of the tube must be less than the radius of the torus"_s);
    check_position(center, u"the center"_s);
    const Vector up = unit(axis);
    return make(u"torus"_s, name, [&] {
        const EngineTags shape{{3, occ::addTorus(center.x, center.y, center.z, radius, tube_radius)}};
        // The kernel makes it around the z axis: it is turned there about the line that is square to both.
        const double across = std::hypot(up.x, up.y);
        const double angle = std::atan2(across, up.z);
        if (across > 0)
            occ::rotate(shape, center.x, center.y, center.z, -up.y / across, up.x / across, 0, angle);
        else if (up.z < 0)
            occ::rotate(shape, center.x, center.y, center.z, 1, 0, 0, std::numbers::pi);
    });
}

void GeometryModel::move(const QList<int>& ids, const Vector& by)
{
    check_position(by, u"the offset"_s);
    transform(ids, [&by](const EngineTags& shapes) { occ::translate(shapes, by.x, by.y, by.z); });
}

void GeometryModel::rotate(const QList<int>& ids, double degrees, const Vector& point, const Vector& axis)
{
    if (!std::isfinite(degrees))
        throw GeometryError(u"the angle must be a number"_s);
    check_position(point, u"the point"_s);
    const Vector direction = unit(axis);
    const double angle = std::remainder(degrees, 360.0) * std::numbers::pi / 180;
    transform(ids, [&](const EngineTags& shapes) {
        occ::rotate(shapes, point.x, point.y, point.z, direction.x, direction.y, direction.z, angle);
    });
}

int GeometryModel::copy(int id, const Vector& by, const QString& name)
{
    check_position(by, u"the offset"_s);
    check_ids({id});
    // "plate" gives "plate3", and so does "plate2".
    QString kind = entry(id).name;
    while (kind.size() > 1 && kind.back() >= u'0' && kind.back() <= u'9')
        kind.chop(1);
    return make(kind, name, [&] {
        const EngineTags shapes = load(id);
        if (by != Vector())
            occ::translate(shapes, by.x, by.y, by.z);
    });
}

void GeometryModel::rename(int id, const QString& name)
{
    Entry& solid = entry(id);
    if (name == solid.name)
        return;
    if (name.isEmpty())
        throw GeometryError(u"a name must not be empty"_s);
    check_new_name(name);
    mIds.emplace(name, id);
    mIds.erase(solid.name);
    solid.name = name;
    emit solid_changed(id);
}

void GeometryModel::unite(const QList<int>& ids)
{
    combine(ids, u"nothing would be left"_s, [](const std::vector<EngineTags>& solids) {
        EngineTags result;
        std::vector<EngineTags> origins;
        occ::fuse(solids.front(), joined_rest(solids), result, origins);
        return result;
    });
}

void GeometryModel::subtract(int id, const QList<int>& tools)
{
    combine(QList<int>{id} + tools, u"nothing would be left of \"%1\""_s.arg(entry(id).name),
            [](const std::vector<EngineTags>& solids) {
                EngineTags result;
                std::vector<EngineTags> origins;
                occ::cut(solids.front(), joined_rest(solids), result, origins);
                return result;
            });
}

void GeometryModel::intersect(const QList<int>& ids)
{
    combine(ids, u"the solids have nothing in common"_s, [](const std::vector<EngineTags>& solids) {
        // One after the other: given together, all but the first would count as one.
        EngineTags result = solids.front();
        for (std::size_t i = 1; i < solids.size(); ++i) {
            EngineTags common;
            std::vector<EngineTags> origins;
            occ::intersect(result, solids[i], common, origins);
            std::erase_if(common, [](const auto& shape) { return shape.first != 3; });
            if (common.empty())
                return common;
            result = common;
        }
        return result;
    });
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
    emit mesh_changed();
}

QList<int> GeometryModel::read_brep(const QStringList& paths, const QString& name)
{
    if (!is_name(name))
        throw GeometryError(u"\"%1\" cannot name a solid"_s.arg(name));
    std::vector<std::unique_ptr<Draft>> drafts;
    for (const QString& path : paths) {
        drafts.push_back(std::make_unique<Draft>(++mLastModel));
        engine([&path] {
            EngineTags shapes;
            occ::importShapes(path.toStdString(), shapes, true, "brep");
            check_shapes(shapes);
        });
    }
    const bool as_it_is = paths.size() == 1 && !mIds.contains(name);
    QList<int> result;
    for (const auto& draft : drafts)
        result << add(*draft, name, as_it_is ? name : QString());
    return result;
}

void GeometryModel::write_brep(int id, const QString& path) const
{
    select(id);
    QFile::remove(path);
    engine([&path] { gmsh::write(path.toStdString()); });
    // The engine says nothing when it cannot write.
    if (!is_whole_brep(path))
        throw GeometryError(u"the file \"%1\" cannot be written"_s.arg(path));
}

void GeometryModel::select(int id) const
{
    Entry& solid = entry(id);
    engine([&solid] {
        gmsh::model::setCurrent(solid.model);
        if (!solid.in_step)
            occ::synchronize();
        solid.in_step = true;
    });
}

GeometryModel::Entry& GeometryModel::entry(int id) const
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

int GeometryModel::make(const QString& kind, const QString& name, const Operation& operation)
{
    if (!name.isEmpty())
        check_new_name(name);
    Draft draft(++mLastModel);
    engine([&operation] {
        operation();
        check_shapes(volumes());
    });
    return add(draft, kind, name);
}

int GeometryModel::add(Draft& draft, const QString& kind, const QString& name)
{
    const int id = mLastId + 1;
    Entry solid;
    solid.name = name.isEmpty() ? name_for(kind, id) : name;
    mIds.emplace(solid.name, id);
    solid.model = draft.take();
    mSolids.emplace(id, std::move(solid));
    mLastId = id;
    changed(id);
    return id;
}

/** Changes copies, and puts them in the place of the shapes only when all have gone well. */
void GeometryModel::transform(const QList<int>& ids, const std::function<void(const EngineTags&)>& operation)
{
    check_ids(ids);
    struct Change
    {
        int id;
        EngineTags before;
        EngineTags after;
    };
    std::vector<Change> changes;
    const auto remove = [this](int id, const EngineTags& shapes) {
        gmsh::model::setCurrent(entry(id).model);
        occ::remove(shapes, true);
    };
    auto undo = qScopeGuard([&changes, &remove] {
        for (const Change& change : changes) {
            try {
                remove(change.id, change.after);
            } catch (...) {
                // A copy that could not even be made.
            }
        }
    });
    engine([&] {
        for (const int id : ids) {
            gmsh::model::setCurrent(entry(id).model);
            changes.push_back({id, volumes(), {}});
            Change& change = changes.back();
            occ::copy(change.before, change.after);
            operation(change.after);
            check_shapes(change.after);
        }
    });
    undo.dismiss();
    engine([&] {
        for (const Change& change : changes)
            remove(change.id, change.before);
    });
    for (const int id : ids)
        changed(id);
}

void GeometryModel::combine(const QList<int>& ids, const QString& nothing_left,
                            const Combination& combination)
{
    check_ids(ids);
    if (ids.size() < 2)
        throw GeometryError(u"another solid is needed"_s);
    Draft draft(++mLastModel);
    engine([&] {
        std::vector<EngineTags> solids;
        for (const int id : ids)
            solids.push_back(load(id));
        if (combination(solids).empty() || volumes().empty())
            throw GeometryError(nothing_left);
        remove_loose_shapes();
        check_shapes(volumes());
    });
    Entry& solid = entry(ids.first());
    Draft::remove(std::exchange(solid.model, draft.take()));
    for (const int id : ids.sliced(1))
        forget(id);
    changed(ids.first());
}

/** Puts a copy of the solid into the engine's current model, through a file: the engine knows no other way.
 */
EngineTags GeometryModel::load(int id) const
{
    std::string current;
    gmsh::model::getCurrent(current);
    const TemporaryFolder directory;
    if (!directory.is_valid())
        throw GeometryError(u"no temporary folder can be made: "_s + directory.error());
    const QString file = directory.path(u"solid.brep"_s);
    write_brep(id, file);
    gmsh::model::setCurrent(current);
    EngineTags shapes;
    occ::importShapes(file.toStdString(), shapes, true, "brep");
    return shapes;
}

void GeometryModel::forget(int id)
{
    const Entry& solid = entry(id);
    Draft::remove(solid.model);
    mIds.erase(solid.name);
    mSolids.erase(id);
    ++mRevision;
    emit solid_changed(id);
}

void GeometryModel::changed(int id)
{
    Entry& solid = entry(id);
    solid.in_step = false;
    solid.measures.reset();
    solid.brep.clear();
    ++mRevision;
    emit solid_changed(id);
}

GeometryContents GeometryModel::contents() const
{
    const TemporaryFolder directory;
    if (!directory.is_valid() && !mSolids.empty())
        throw GeometryError(u"no temporary folder can be made: "_s + directory.error());
    const QString path = directory.path(u"solid.brep"_s);
    GeometryContents result;
    result.last_id = mLastId;
    for (auto& [id, solid] : mSolids) {
        if (solid.brep.isEmpty()) {
            write_brep(id, path);
            QFile file(path);
            QByteArray brep;
            if (file.open(QIODevice::ReadOnly))
                brep = file.readAll();
            if (brep.isEmpty() || brep.size() != file.size())
                throw GeometryError(u"a temporary file cannot be read: "_s + file.errorString());
            solid.brep = brep;
        }
        result.solids << GeometryContents::Solid{id, solid.name, solid.brep};
    }
    result.mesh = mMesh;
    result.mesh_age = mMesh ? mRevision - mMesh->revision : 0;
    return result;
}

void GeometryModel::replace(const GeometryContents& contents)
{
    const TemporaryFolder directory;
    if (!directory.is_valid() && !contents.solids.isEmpty())
        throw GeometryError(u"no temporary folder can be made: "_s + directory.error());
    const QString path = directory.path(u"solid.brep"_s);
    std::map<int, Entry> solids;
    std::map<QString, int> ids;
    std::vector<std::unique_ptr<Draft>> drafts;
    for (const GeometryContents::Solid& solid : contents.solids) {
        if (solid.id < 1 || solid.id > contents.last_id || !is_name(solid.name) ||
            !ids.emplace(solid.name, solid.id).second ||
            !solids.try_emplace(solid.id, Entry{solid.name, {}, false, {}, solid.brep}).second)
            throw GeometryError(
                u"the id %1 or the name \"%2\" cannot be that of a solid"_s.arg(solid.id).arg(solid.name));
    }
    for (const GeometryContents::Solid& solid : contents.solids) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(solid.brep) != solid.brep.size() || !file.flush())
            throw GeometryError(u"a temporary file cannot be written: "_s + file.errorString());
        drafts.push_back(std::make_unique<Draft>(++mLastModel));
        try {
            engine([&path] {
                EngineTags shapes;
                occ::importShapes(path.toStdString(), shapes, true, "brep");
                check_shapes(volumes());
            });
        } catch (const GeometryError& error) {
            throw GeometryError(u"the shape of \"%1\": "_s.arg(solid.name) + error.message());
        }
    }

    // Nothing fails from here on.
    auto draft = drafts.begin();
    for (const GeometryContents::Solid& solid : contents.solids)
        solids[solid.id].model = (*draft++)->take();
    mSolids.swap(solids);
    mIds.swap(ids);
    mLastId = contents.last_id;
    ++mRevision;
    mMesh = nullptr;
    if (contents.mesh) {
        auto mesh = std::make_shared<Mesh>(*contents.mesh);
        mesh->revision = mRevision - contents.mesh_age;
        mMesh = mesh;
    }
    std::set<int> touched;
    for (const auto& [id, solid] : solids) {
        Draft::remove(solid.model);
        touched.insert(id);
    }
    for (const auto& solid : mSolids)
        touched.insert(solid.first);
    for (const int id : touched)
        emit solid_changed(id);
    emit mesh_changed();
}
