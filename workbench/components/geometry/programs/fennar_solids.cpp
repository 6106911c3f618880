// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Reads and writes files of exact solids in a process of its own:  fennar-solids JOB
//
// JOB is a text file, one entry a line; paths have no blank and are relative to the folder it lies in. It
// begins with one of
//
//     read ENDING          reads "input", a file in the format that ENDING tells: step, iges or brep; and
//                          writes each solid to a file in the BREP format, named "output" with 1, 2, ... and
//                          ".brep" behind it
//     write step           writes the "solids", in the BREP format, to "output" in the STEP format
//
// Lengths are millimeters. Of a file without solids the faces are sewn together; spaces that they close are
// its solids. The program uses the CAD kernel alone: the engine that meshes takes several times as long to
// start.
//
// Output and exit status are as those of fennar-mesher.

#include "workbench/components/geometry/programs/file_program.h"

#include <BRepBuilderAPI_MakeSolid.hxx>
#include <BRepBuilderAPI_Sewing.hxx>
#include <BRepLib.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <IGESControl_Reader.hxx>
#include <Interface_Static.hxx>
#include <STEPControl_Reader.hxx>
#include <STEPControl_Writer.hxx>
#include <Standard_Failure.hxx>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Solid.hxx>
#include <string>

using namespace fennar::geometry;

namespace {

const char* const is_damaged = "it is damaged, or of another format";

TopoDS_Shape read_brep(const std::string& path)
{
    TopoDS_Shape shape;
    if (!BRepTools::Read(shape, path.c_str(), BRep_Builder()) || shape.IsNull())
        throw Failure(is_damaged);
    return shape;
}

/** @tparam Reader  the kernel's reader of a format. */
template <typename Reader>
TopoDS_Shape read_with(const std::string& path)
{
    Reader reader;
    if (reader.ReadFile(path.c_str()) != IFSelect_RetDone)
        throw Failure(is_damaged);
    reader.TransferRoots();
    return reader.OneShape();
}

/** The shape in a file; null if there is none in it. */
TopoDS_Shape read_shape(const Job& job)
{
    if (job.kind == "step")
        return read_with<STEPControl_Reader>(job.input);
    if (job.kind == "iges")
        return read_with<IGESControl_Reader>(job.input);
    return read_brep(job.input);
}

/** The solids that faces close which are only said to belong together, as in most IGES files. */
TopoDS_Shape sewn(const TopoDS_Shape& shape)
{
    BRepBuilderAPI_Sewing sewing;
    sewing.Add(shape);
    sewing.Perform();
    TopTools_IndexedMapOfShape shells;
    if (!sewing.SewedShape().IsNull())
        TopExp::MapShapes(sewing.SewedShape(), TopAbs_SHELL, shells);
    BRep_Builder builder;
    TopoDS_Compound result;
    builder.MakeCompound(result);
    for (int i = 1; i <= shells.Extent(); ++i) {
        if (!shells(i).Closed())
            continue;
        TopoDS_Solid solid = BRepBuilderAPI_MakeSolid(TopoDS::Shell(shells(i))).Solid();
        BRepLib::OrientClosedSolid(solid);
        builder.Add(result, solid);
    }
    return result;
}

TopTools_IndexedMapOfShape solids_of(const TopoDS_Shape& shape)
{
    TopTools_IndexedMapOfShape solids;
    if (!shape.IsNull())
        TopExp::MapShapes(shape, TopAbs_SOLID, solids);
    return solids;
}

void read_file(const Job& job)
{
    stage("open");
    const TopoDS_Shape shape = read_shape(job);
    TopTools_IndexedMapOfShape solids = solids_of(shape);
    if (solids.IsEmpty() && !shape.IsNull())
        solids = solids_of(sewn(shape));
    if (solids.IsEmpty())
        throw Failure("it holds no solid");
    for (int i = 1; i <= solids.Extent(); ++i) {
        const std::string path = job.output + std::to_string(i) + ".brep";
        BRepTools::Write(solids(i), path.c_str(), Standard_False, Standard_False,
                         TopTools_FormatVersion_CURRENT);
        check_written(path);
    }
}

void write_file(const Job& job)
{
    stage("read");
    const TopoDS_Shape shape = read_brep(job.solids);
    stage("write");
    STEPControl_Writer writer;
    Interface_Static::SetCVal("write.step.product.name", "fennar");
    if (writer.Transfer(shape, STEPControl_AsIs) != IFSelect_RetDone ||
        writer.Write(job.output.c_str()) != IFSelect_RetDone)
        throw Failure("the solids cannot be written in this format, or the disk is full");
    check_written(job.output);
}

bool run(const std::string& path)
{
    Job job;
    if (!job.read(path))
        return false;
    const bool reads = job.action == "read" && !job.input.empty() &&
                       (job.kind == "step" || job.kind == "iges" || job.kind == "brep");
    if (!reads && (job.action != "write" || job.kind != "step" || job.solids.empty()))
        return false;
    try {
        reads ? read_file(job) : write_file(job);
    } catch (const Standard_Failure& failure) {
        const char* message = failure.GetMessageString();
        throw Failure(std::string("the CAD kernel refuses: ") +
                      (message && *message ? message : failure.DynamicType()->Name()));
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    return run_file_program(argc, argv, run);
}
