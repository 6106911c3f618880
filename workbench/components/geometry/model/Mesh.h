// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace fennar::geometry {

/** A mesh and what is known of it. Lengths are in the units of the model. */
struct Mesh
{
    /** How many elements of one kind there are. */
    struct Elements
    {
        /** 0 for points, 1 for lines, 2 for faces, 3 for volumes. */
        int dimension = 0;
        /** The engine's name, as "Tetrahedron 4". */
        QString kind;
        qint64 count = 0;
    };
    /** A measure of all volume elements; 1 is the best value. */
    struct Quality
    {
        /** "ICN", the inverse condition number, or "IGE", the inverse gradient error. */
        QString measure;
        double least = 0;
        double mean = 0;
        double most = 0;
    };

    /** The next one that no mesh has had. */
    static qint64 new_number()
    {
        static qint64 last = 0;
        return ++last;
    }

    /** The mesh itself, as a binary file in the MSH format. */
    QByteArray msh;
    /** The length of the elements that was asked for; 0 for an imported mesh. */
    double size = 0;
    /** The file that the mesh was imported from; empty if it was made of solids. */
    QString file;
    /** The names of the solids when they were meshed. */
    QStringList solids;
    /** The outer triangles of each one's elements, as pack_surface() writes them. */
    QByteArrayList surfaces;
    qint64 nodes = 0;
    QList<Elements> elements;
    /** Empty until somebody asks, see mesh_quality(): to measure may take longer than to mesh. */
    mutable std::optional<QList<Quality>> quality;
    /** Another one for each mesh of this process; copies have the same. */
    qint64 number = new_number();
    /** GeometryModel::revision() of the model that was meshed. */
    qint64 revision = 0;
};

} // namespace fennar::geometry
