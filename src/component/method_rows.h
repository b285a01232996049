#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "component/method_row.h"

/// The published methods as constants. Who needs them only when the program runs takes methods()
/// of method_table.h; this is for what is made from them when the program is compiled.
namespace velmar::published {

/// The one place that lists the methods.
inline constexpr Method rows[] = {
    method<&Velmar16::RotateAllText>(
        "RotateAllText", Subject::text, OnFailure::reaches_caller,
        "Rotate the texts of one layer that lie as the picked one about their own centres",
        "LayerName?", "RotatValue?", "ALLT?"),
    method<&Velmar16::GetBRec>("GetBRec", Subject::handles, OnFailure::reaches_caller,
                               "Keep the bounding box of an entity of the given kind", "Hndl",
                               "ObjectName"),
    method<&Velmar16::Del>("Del", Subject::handles, OnFailure::reaches_caller, "Delete an entity",
                           "Handle"),
    method<&Velmar16::MAX>("MAX", Subject::calc, OnFailure::reaches_caller,
                           "The larger of two values", "N1", "N2"),
    method<&Velmar16::MIN>("MIN", Subject::calc, OnFailure::reaches_caller,
                           "The smaller of two values", "N1", "N2"),
    method<&Velmar16::Text>("Text", Subject::text, OnFailure::reaches_caller,
                            "Write a text, coloured by what it says", "TextString", "X", "y", "RO",
                            "H", "LayerName?", "Hidden?", Colour("Color?"), "Hndltext?"),
    method<&Velmar16::GetC>("GetC", Subject::handles, OnFailure::reaches_caller,
                            "Twice the whole width of a donut; keeps its centre", "DouHndl"),
    method<&Velmar16::ReplaceT>("ReplaceT", Subject::text, OnFailure::reaches_caller,
                                "Replace or delete the texts that read exactly so", "OldT",
                                "NewT?"),
    method<&Velmar16::ReplaceTL>("ReplaceTL", Subject::text, OnFailure::reaches_caller,
                                 "Replace or delete the texts of one layer that read exactly so",
                                 "OldT", "NewT?", "TLayer?"),
    method<&Velmar16::Angle2P>("Angle2P", Subject::calc, OnFailure::reaches_caller,
                               "The angle from one point to another in radians", "X1", "Y1", "X2",
                               "Y2"),
    method<&Velmar16::Dis>("Dis", Subject::calc, OnFailure::reaches_caller,
                           "The length of a vector", "N1", "N2"),
    method<&Velmar16::R>("R", Subject::calc, OnFailure::reaches_caller,
                         "Round to the nearest multiple of a step", "N", "A"),
    method<&Velmar16::RUP>("RUP", Subject::calc, OnFailure::reaches_caller,
                           "Round up to a multiple of a step", "Nmbr", "dvdr"),
    method<&Velmar16::RDN>("RDN", Subject::calc, OnFailure::reaches_caller,
                           "Round down to a multiple of a step", "N", "A"),
    method<&Velmar16::AlignDonut>(
        "AlignDonut", Subject::geometry, OnFailure::skips_step,
        "Align selected entities vertically on the start of a picked line"),
    method<&Velmar16::IDLast>("IDLast", Subject::handles, OnFailure::reaches_caller,
                              "The handle of the newest entity, read as a decimal number"),
    method<&Velmar16::OMove>("OMove", Subject::geometry, OnFailure::skips_step,
                             "Move an entity by offsets", "Hndl", "L?", "Ver?", "H?", "zzz?"),
    method<&Velmar16::Avr>("Avr", Subject::calc, OnFailure::reaches_caller,
                           "The middle of two numbers", "N1", "N2"),
    method<&Velmar16::DisP>("DisP", Subject::calc, OnFailure::reaches_caller,
                            "The distance of two points, on request drawn as a line", "startPoint",
                            "EndPoint", "Visibility?"),
    method<&Velmar16::Alignement>("Alignement", Subject::geometry, OnFailure::reaches_caller,
                                  "Bring every entity to elevation 0"),
    method<&Velmar16::AlignDimension>(
        "AlignDimension", Subject::geometry, OnFailure::skips_step,
        "Put selected dimension lines on the line of a base dimension"),
    method<&Velmar16::ReplaceTag>(
        "ReplaceTag", Subject::text, OnFailure::skips_step,
        "Replace the value of an attribute in every insertion of a block"),
    method<&Velmar16::ReplaceInT>("ReplaceInT", Subject::text, OnFailure::reaches_caller,
                                  "Replace inside texts", "OldT", "NewT?", "LayerName?", "First?",
                                  "OnlyExOrNt?"),
    method<&Velmar16::Unload_TB>("Unload_TB", Subject::batch, OnFailure::reaches_caller,
                                 "Unload or reload the external reference whose name contains TB"),
    method<&Velmar16::Unload_Xref>(
        "Unload_Xref", Subject::batch, OnFailure::reaches_caller,
        "Unload or reload the external reference whose name contains ref"),
    method<&Velmar16::Tolerencee>("Tolerencee", Subject::text, OnFailure::skips_step,
                                  "Place tolerance frames"),
    method<&Velmar16::SaveAllDrawings>("SaveAllDrawings", Subject::batch, OnFailure::reaches_caller,
                                       "Save and close every drawing that has a file"),
    method<&Velmar16::SaveAllCurrentDrawings>("SaveAllCurrentDrawings", Subject::batch,
                                              OnFailure::reaches_caller,
                                              "Remember which drawings are open"),
    method<&Velmar16::LoadAllCurrentDrawings>(
        "LoadAllCurrentDrawings", Subject::batch, OnFailure::skips_step,
        "Open the remembered drawings and show the folders of the open ones"),
    method<&Velmar16::Replace>("Replace", Subject::layers, OnFailure::reaches_caller,
                               "Mark the centres of the polylines of a layer with circles",
                               "LayerName", "CirVis?"),
    method<&Velmar16::GetNOLayer>("GetNOLayer", Subject::layers, OnFailure::reaches_caller,
                                  "Count the entities of a layer", "LayerName"),
    method<&Velmar16::GetNType>("GetNType", Subject::layers, OnFailure::reaches_caller,
                                "Count the entities of a kind", "ObjectName"),
    method<&Velmar16::GetNTypeLayer>(
        "GetNTypeLayer", Subject::layers, OnFailure::reaches_caller,
        "Count the entities of a kind on the layers whose name contains a text", "ObjectName",
        "LayerName"),
    method<&Velmar16::DisF>("DisF", Subject::calc, OnFailure::reaches_caller,
                            "The other side of a right triangle, from its hypotenuse and a side",
                            "Watar", "Dla"),
    method<&Velmar16::Hatch>("Hatch", Subject::geometry, OnFailure::skips_step, "Hatch a rectangle",
                             "L", "H", "X0", "Y0"),
    method<&Velmar16::HatchAligned>("HatchAligned", Subject::geometry, OnFailure::skips_step,
                                    "Hatch the inside of a closed entity", "ObjHndl"),
    method<&Velmar16::Sc>("Sc", Subject::geometry, OnFailure::reaches_caller,
                          "Scale an entity about a point", "PHndl", "Scl", "X", "y"),
    method<&Velmar16::DimAL>("DimAL", Subject::geometry, OnFailure::skips_step,
                             "Dimension the distance of two points", "X1", "Y1", "X2", "Y2",
                             "DimStyle?", "Acadw?", "dISt?"),
    method<&Velmar16::Mo2Lr>("Mo2Lr", Subject::layers, OnFailure::ends_quietly,
                             "Move an entity of the given kind to a layer", "ObjHndl", "LayerName?",
                             "ObjectName?"),
    method<&Velmar16::Bt>("Bt", Subject::calc, OnFailure::reaches_caller,
                          "1 when a number lies between two others, else 0", "Nc", "Nmin", "Nmax"),
    method<&Velmar16::TextBar>("TextBar", Subject::text, OnFailure::reaches_caller,
                               "Write the label of a reinforcing bar", "XT", "YT", "D", "BM", "SP",
                               "N", "Typ", "AD"),
    method<&Velmar16::ArcSin>("ArcSin", Subject::calc, OnFailure::reaches_caller,
                              "The inverse sine in degrees", "sin"),
    method<&Velmar16::ArcCos>("ArcCos", Subject::calc, OnFailure::reaches_caller,
                              "The inverse cosine in degrees", "cos"),
    method<&Velmar16::GetFolder>("GetFolder", Subject::calc, OnFailure::reaches_caller,
                                 "A path without its last part", "PathL"),
    method<&Velmar16::ReplaceLineByType>(
        "ReplaceLineByType", Subject::layers, OnFailure::skips_step,
        "Give the entities of a picked linetype another linetype scale"),
    method<&Velmar16::Hatch_Layer>("Hatch_Layer", Subject::layers, OnFailure::skips_step,
                                   "Hatch the polylines of a picked layer", "LayerName?"),
    method<&Velmar16::GetTotalLength>("GetTotalLength", Subject::measure, OnFailure::reaches_caller,
                                      "The total length of the lines and arcs of a picked layer"),
    method<&Velmar16::GetTotalArea>(
        "GetTotalArea", Subject::measure, OnFailure::skips_step,
        "The total area of the polylines and ellipses of a picked layer"),
    method<&Velmar16::Dim_Layer>("Dim_Layer", Subject::layers, OnFailure::skips_step,
                                 "Dimension the closed polylines of a picked layer", "LayerName?"),
    method<&Velmar16::StrechText>("StrechText", Subject::text, OnFailure::skips_step,
                                  "Stretch texts to a length", "TxtHndl?", "DistanceToText?",
                                  "NoAsking?"),
    method<&Velmar16::PurgeALLFolder>("PurgeALLFolder", Subject::batch, OnFailure::skips_step,
                                      "Purge the drawings of a folder", "Pathm"),
    method<&Velmar16::ScaleXY>("ScaleXY", Subject::geometry, OnFailure::skips_step,
                               "Scale model space by one factor along x and another along y",
                               "ScaleY?", "ScaleX?"),
    method<&Velmar16::FolderDwgDxf>("FolderDwgDxf", Subject::batch, OnFailure::skips_step,
                                    "Save the drawings of a folder in the exchange format",
                                    "Pathm"),
    method<&Velmar16::FolderDGN>("FolderDGN", Subject::batch, OnFailure::reaches_caller,
                                 "Start the import once for each design file of a folder", "Pathm"),
    method<&Velmar16::FolderDxfDwg>("FolderDxfDwg", Subject::batch, OnFailure::skips_step,
                                    "Save the exchange files of a folder as drawings", "Pathm"),
    method<&Velmar16::GetNs>("GetNs", Subject::calc, OnFailure::reaches_caller,
                             "The number in a text, such as the year in a window caption", "BName"),
    method<&Velmar16::GetFileName>("GetFileName", Subject::calc, OnFailure::reaches_caller,
                                   "A file name without its last four characters", "FileName"),
    method<&Velmar16::DelFilNam>("DelFilNam", Subject::batch, OnFailure::reaches_caller,
                                 "Cut a piece out of file names where that replaces a file",
                                 "Pathm", "TxtDel", "FType"),
    method<&Velmar16::ChangeLetterCase>("ChangeLetterCase", Subject::text, OnFailure::skips_step,
                                        "Change the letter case of a picked text"),
    method<&Velmar16::CountInText>("CountInText", Subject::text, OnFailure::reaches_caller,
                                   "Count the texts that contain a word"),
    method<&Velmar16::Joint2Text>("Joint2Text", Subject::text, OnFailure::skips_step,
                                  "Append picked texts to others"),
    method<&Velmar16::TextIndex>("TextIndex", Subject::text, OnFailure::skips_step,
                                 "Number or letter picked texts"),
    method<&Velmar16::Delete_OLE>("Delete_OLE", Subject::batch, OnFailure::skips_step,
                                  "Delete the embedded objects of model space"),
    method<&Velmar16::ColLayerObj>("ColLayerObj", Subject::layers, OnFailure::reaches_caller,
                                   "Colour the entities of a kind on a layer", "Color", "LayerName",
                                   "ObjectName"),
    method<&Velmar16::ColDel>("ColDel", Subject::layers, OnFailure::reaches_caller,
                              "Delete the entities of a kind and a colour", "Color", "ObjectName"),
    method<&Velmar16::ColDelLayer>("ColDelLayer", Subject::layers, OnFailure::reaches_caller,
                                   "Delete the entities of a kind and a colour on a layer", "Color",
                                   "LayerName", "ObjectName"),
    method<&Velmar16::NmLayer>("NmLayer", Subject::layers, OnFailure::skips_step,
                               "Replace a part of layer names", "StrB", "StrA"),
    method<&Velmar16::ColorToLayer>("ColorToLayer", Subject::layers, OnFailure::reaches_caller,
                                    "Move the entities of a kind and a colour to a layer",
                                    Colour("Color"), "LayerName", "ObjectName"),
    method<&Velmar16::MLayer>("MLayer", Subject::layers, OnFailure::reaches_caller,
                              "Make a layer if it is not there", "LayerName", Colour("Color?")),
    method<&Velmar16::UpperCase>("UpperCase", Subject::calc, OnFailure::reaches_caller,
                                 "A text in upper case", "AsString"),
    method<&Velmar16::LowerCase>("LowerCase", Subject::calc, OnFailure::reaches_caller,
                                 "A text in lower case", "AsString"),
    method<&Velmar16::TitleCase>("TitleCase", Subject::calc, OnFailure::reaches_caller,
                                 "A text with each word capitalised", "AsString"),
    method<&Velmar16::ReverseCase>("ReverseCase", Subject::calc, OnFailure::reaches_caller,
                                   "A text with the case of the letters A to Z inverted",
                                   "AsString"),
    method<&Velmar16::ExplodeBlock>("ExplodeBlock", Subject::batch, OnFailure::reaches_caller,
                                    "Explode every insertion of a picked block in model space"),
    method<&Velmar16::DeleteBlock>("DeleteBlock", Subject::batch, OnFailure::reaches_caller,
                                   "Delete every insertion of a picked block in model space"),
    method<&Velmar16::ZoomLayouts>("ZoomLayouts", Subject::batch, OnFailure::reaches_caller,
                                   "Zoom every layout to its extents and save the drawing"),
    method<&Velmar16::DeleteLayouts>("DeleteLayouts", Subject::batch, OnFailure::reaches_caller,
                                     "Delete the layouts of every drawing of a folder", "Pathm"),
    method<&Velmar16::SlowDown>("SlowDown", Subject::batch, OnFailure::reaches_caller,
                                "Wait so many milliseconds", "MilliSeconds"),
};

inline constexpr std::size_t method_count = std::size(rows);
static_assert(method_count == 78);

consteval bool names_differ() {
  for (std::size_t i = 0; i < method_count; ++i) {
    for (std::size_t j = i + 1; j < method_count; ++j) {
      if (rows[i].name == rows[j].name) return false;
    }
  }
  return true;
}
static_assert(names_differ());

/// Callers compiled long ago hold these numbers: two of them are no methods.
consteval std::array<Method, method_count> with_dispatch_ids() {
  constexpr std::uint32_t first = 0x60030000, unused_at = 73, unused = 2;
  std::array<Method, method_count> numbered = std::to_array(rows);
  for (std::uint32_t i = 0; i < method_count; ++i) {
    numbered[i].dispatch_id = first + i + (i < unused_at ? 0 : unused);
  }
  return numbered;
}

/// All published methods, in interface order.
inline constexpr std::array methods = with_dispatch_ids();

}  // namespace velmar::published
