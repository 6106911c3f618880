// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/model/mesh_surfaces.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <unordered_map>
#include <vector>

namespace {

constexpr int tetrahedron = 4;

using Corners = std::array<std::size_t, 3>;

/** Reads numbers in the machine's own format; throws when there are not enough. */
class Bytes
{
public:
    explicit Bytes(const QByteArray& bytes) : mBytes(bytes) {}

    /** Goes behind the line @p name. Returns false if there is none. */
    bool find(const char* name)
    {
        const qsizetype found = mBytes.indexOf(name);
        if (found >= 0)
            mAt = found + qsizetype(std::strlen(name));
        return found >= 0;
    }
    template <typename Number>
    Number take()
    {
        Number number;
        need(sizeof(Number), 1);
        std::memcpy(&number, mBytes.constData() + mAt, sizeof(Number));
        mAt += qsizetype(sizeof(Number));
        return number;
    }
    void skip(std::size_t size, std::size_t count)
    {
        need(size, count);
        mAt += qsizetype(size * count);
    }
    /** Throws if there are not so many things of that size. */
    void need(std::size_t size, std::size_t count) const
    {
        if (count > std::size_t(mBytes.size() - mAt) / size)
            throw std::runtime_error("the mesh is cut off");
    }
    QByteArray line()
    {
        const qsizetype end = mBytes.indexOf('\n', mAt);
        if (end < 0)
            throw std::runtime_error("the mesh is cut off");
        const QByteArray text = mBytes.mid(mAt, end - mAt);
        mAt = end + 1;
        return text;
    }

private:
    const QByteArray& mBytes;
    qsizetype mAt = 0;
};

struct Contents
{
    /** Names of the physical groups of volumes, by their tags. */
    std::unordered_map<int, QString> names;
    /** The groups of the volumes. */
    std::unordered_map<int, int> groups;
    std::unordered_map<std::size_t, Point3> nodes;
    /** The tetrahedra of each group, four nodes for each. */
    std::map<int, std::vector<std::size_t>> tetrahedra;
};

void read_names(Bytes& bytes, Contents& contents)
{
    if (!bytes.find("$PhysicalNames\n"))
        throw std::runtime_error("the mesh has no groups");
    const int count = bytes.line().toInt();
    for (int i = 0; i < count; ++i) {
        const QByteArray line = bytes.line(); // 3 1 "name"
        const QList<QByteArray> words = line.split(' ');
        const qsizetype from = line.indexOf('"') + 1;
        const qsizetype to = line.lastIndexOf('"');
        if (words.size() > 2 && words[0] == "3" && to > from)
            contents.names[words[1].toInt()] = QString::fromUtf8(line.mid(from, to - from));
    }
}

void read_volumes(Bytes& bytes, Contents& contents)
{
    if (!bytes.find("$Entities\n"))
        throw std::runtime_error("the mesh has no volumes");
    std::array<std::size_t, 4> counts = {};
    for (std::size_t& count : counts)
        count = bytes.take<std::size_t>();
    for (std::size_t dimension = 0; dimension < counts.size(); ++dimension) {
        for (std::size_t i = 0; i < counts[dimension]; ++i) {
            const int tag = bytes.take<int>();
            bytes.skip(sizeof(double), dimension == 0 ? 3 : 6);
            const auto groups = bytes.take<std::size_t>();
            for (std::size_t j = 0; j < groups; ++j) {
                const int group = bytes.take<int>();
                if (dimension == 3)
                    contents.groups[tag] = group;
            }
            if (dimension > 0)
                bytes.skip(sizeof(int), bytes.take<std::size_t>());
        }
    }
}

void read_nodes(Bytes& bytes, Contents& contents)
{
    if (!bytes.find("$Nodes\n"))
        throw std::runtime_error("the mesh has no nodes");
    const auto blocks = bytes.take<std::size_t>();
    bytes.skip(sizeof(std::size_t), 3);
    std::vector<std::size_t> tags;
    for (std::size_t block = 0; block < blocks; ++block) {
        const int dimension = bytes.take<int>();
        bytes.take<int>();
        const bool parametric = bytes.take<int>() != 0;
        const auto count = bytes.take<std::size_t>();
        bytes.need(sizeof(std::size_t), count);
        tags.clear();
        for (std::size_t i = 0; i < count; ++i)
            tags.push_back(bytes.take<std::size_t>());
        for (const std::size_t tag : tags) {
            Point3& node = contents.nodes[tag];
            node.x = bytes.take<double>();
            node.y = bytes.take<double>();
            node.z = bytes.take<double>();
            if (parametric)
                bytes.skip(sizeof(double), std::size_t(std::clamp(dimension, 0, 3)));
        }
    }
}

void read_tetrahedra(Bytes& bytes, Contents& contents)
{
    // How many nodes the kinds of elements have that the mesher makes.
    static const std::map<int, std::size_t> node_counts = {{15, 1}, {1, 2}, {2, 3}, {tetrahedron, 4}};
    if (!bytes.find("$Elements\n"))
        throw std::runtime_error("the mesh has no elements");
    const auto blocks = bytes.take<std::size_t>();
    bytes.skip(sizeof(std::size_t), 3);
    for (std::size_t block = 0; block < blocks; ++block) {
        bytes.take<int>();
        const int entity = bytes.take<int>();
        const int type = bytes.take<int>();
        const auto count = bytes.take<std::size_t>();
        const auto known = node_counts.find(type);
        if (known == node_counts.end())
            throw std::runtime_error("the mesh has elements of an unknown kind");
        if (type != tetrahedron) {
            bytes.skip(sizeof(std::size_t) * (known->second + 1), count);
            continue;
        }
        std::vector<std::size_t>& list = contents.tetrahedra[contents.groups[entity]];
        for (std::size_t i = 0; i < count; ++i) {
            bytes.take<std::size_t>();
            for (int j = 0; j < 4; ++j)
                list.push_back(bytes.take<std::size_t>());
        }
    }
}

/** The faces that only one of the tetrahedra has, with their corners in such an order that they face
 * outwards. */
std::vector<Corners> outer_faces(const std::vector<std::size_t>& tetrahedra)
{
    // Behind each face there is the fourth node; seen from outside the corners run to the left.
    static constexpr std::array<std::array<std::size_t, 3>, 4> sides = {
        {{0, 2, 1}, {0, 1, 3}, {1, 2, 3}, {0, 3, 2}}};
    std::vector<std::pair<Corners, Corners>> faces; // the sorted corners first
    faces.reserve(tetrahedra.size());
    for (std::size_t i = 0; i + 3 < tetrahedra.size(); i += 4) {
        for (const auto& side : sides) {
            const Corners face{tetrahedra[i + side[0]], tetrahedra[i + side[1]], tetrahedra[i + side[2]]};
            Corners key = face;
            std::sort(key.begin(), key.end());
            faces.emplace_back(key, face);
        }
    }
    std::sort(faces.begin(), faces.end());
    std::vector<Corners> result;
    for (std::size_t i = 0; i < faces.size();) {
        std::size_t next = i + 1;
        while (next < faces.size() && faces[next].first == faces[i].first)
            ++next;
        if (next == i + 1)
            result.push_back(faces[i].second);
        i = next;
    }
    return result;
}

std::shared_ptr<const SceneShape> make_shape(const std::vector<Corners>& faces,
                                             const std::unordered_map<std::size_t, Point3>& nodes)
{
    auto shape = std::make_shared<SceneShape>();
    Box3 box;
    for (const Corners& face : faces) {
        for (const std::size_t node : face)
            box.add(nodes.at(node));
    }
    shape->origin = box.center();
    const auto place = [&](std::size_t node) {
        const Point3 point = nodes.at(node) - shape->origin;
        return QVector3D(float(point.x), float(point.y), float(point.z));
    };
    for (const Corners& face : faces) {
        const std::array<QVector3D, 3> points = {place(face[0]), place(face[1]), place(face[2])};
        const QVector3D normal = QVector3D::normal(points[0], points[1], points[2]);
        for (std::size_t i = 0; i < 3; ++i) {
            shape->corners.push_back(points[i]);
            shape->normals.push_back(normal);
            // Each edge has two faces, which run along it in opposite directions.
            if (face[i] < face[(i + 1) % 3]) {
                shape->lines.push_back(points[i]);
                shape->lines.push_back(points[(i + 1) % 3]);
            }
        }
    }
    shape->update_box();
    return shape;
}

} // namespace

std::map<QString, std::shared_ptr<const SceneShape>> mesh_surfaces(const QByteArray& msh)
{
    std::map<QString, std::shared_ptr<const SceneShape>> result;
    if (!msh.startsWith("$MeshFormat\n4.1 1 8\n"))
        return result;
    try {
        Bytes bytes(msh);
        Contents contents;
        read_names(bytes, contents);
        read_volumes(bytes, contents);
        read_nodes(bytes, contents);
        read_tetrahedra(bytes, contents);
        for (const auto& [group, tetrahedra] : contents.tetrahedra) {
            const auto name = contents.names.find(group);
            if (name != contents.names.end())
                result[name->second] = make_shape(outer_faces(tetrahedra), contents.nodes);
        }
    } catch (const std::exception&) { // cut off, or a node that is not there
        result.clear();
    }
    return result;
}
