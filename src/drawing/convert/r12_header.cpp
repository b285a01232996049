#include "drawing/convert/r12_header.h"

#include <algorithm>
#include <array>

#include "drawing/convert/release.h"

namespace velmar::drawing {
namespace {

// All lists are sorted.
constexpr auto of_r12_alone = std::to_array<std::string_view>(
    {"$ATTDIA",   "$ATTREQ",   "$AXISMODE", "$AXISUNIT",    "$BLIPMODE", "$COORDS",
     "$DRAGMODE", "$FASTZOOM", "$FLATLAND", "$GRIDMODE",    "$GRIDUNIT", "$HANDLING",
     "$OSMODE",   "$SNAPANG",  "$SNAPBASE", "$SNAPISOPAIR", "$SNAPMODE", "$SNAPSTYLE",
     "$SNAPUNIT", "$VIEWCTR",  "$VIEWDIR",  "$VIEWSIZE",    "$VIEWTWIST"});

constexpr auto since_r12 = std::to_array<std::string_view>(
    {"$ACADVER",   "$ANGBASE",    "$ANGDIR",    "$ATTMODE",    "$AUNITS",     "$AUPREC",
     "$CECOLOR",   "$CELTYPE",    "$CHAMFERA",  "$CHAMFERB",   "$CLAYER",     "$DIMALT",
     "$DIMALTD",   "$DIMALTF",    "$DIMAPOST",  "$DIMASO",     "$DIMASZ",     "$DIMBLK",
     "$DIMBLK1",   "$DIMBLK2",    "$DIMCEN",    "$DIMCLRD",    "$DIMCLRE",    "$DIMCLRT",
     "$DIMDLE",    "$DIMDLI",     "$DIMEXE",    "$DIMEXO",     "$DIMGAP",     "$DIMLFAC",
     "$DIMLIM",    "$DIMPOST",    "$DIMRND",    "$DIMSAH",     "$DIMSCALE",   "$DIMSE1",
     "$DIMSE2",    "$DIMSHO",     "$DIMSOXD",   "$DIMSTYLE",   "$DIMTAD",     "$DIMTFAC",
     "$DIMTIH",    "$DIMTIX",     "$DIMTM",     "$DIMTOFL",    "$DIMTOH",     "$DIMTOL",
     "$DIMTP",     "$DIMTSZ",     "$DIMTVP",    "$DIMTXT",     "$DIMZIN",     "$DWGCODEPAGE",
     "$ELEVATION", "$EXTMAX",     "$EXTMIN",    "$FILLETRAD",  "$FILLMODE",   "$HANDSEED",
     "$INSBASE",   "$LIMCHECK",   "$LIMMAX",    "$LIMMIN",     "$LTSCALE",    "$LUNITS",
     "$LUPREC",    "$MAXACTVP",   "$MENU",      "$MIRRTEXT",   "$ORTHOMODE",  "$PDMODE",
     "$PDSIZE",    "$PELEVATION", "$PEXTMAX",   "$PEXTMIN",    "$PLIMCHECK",  "$PLIMMAX",
     "$PLIMMIN",   "$PLINEGEN",   "$PLINEWID",  "$PSLTSCALE",  "$PUCSNAME",   "$PUCSORG",
     "$PUCSXDIR",  "$PUCSYDIR",   "$QTEXTMODE", "$REGENMODE",  "$SHADEDGE",   "$SHADEDIF",
     "$SKETCHINC", "$SKPOLY",     "$SPLFRAME",  "$SPLINESEGS", "$SPLINETYPE", "$SURFTAB1",
     "$SURFTAB2",  "$SURFTYPE",   "$SURFU",     "$SURFV",      "$TDCREATE",   "$TDINDWG",
     "$TDUPDATE",  "$TDUSRTIMER", "$TEXTSIZE",  "$TEXTSTYLE",  "$THICKNESS",  "$TILEMODE",
     "$TRACEWID",  "$UCSNAME",    "$UCSORG",    "$UCSXDIR",    "$UCSYDIR",    "$UNITMODE",
     "$USERI1",    "$USERI2",     "$USERI3",    "$USERI4",     "$USERI5",     "$USERR1",
     "$USERR2",    "$USERR3",     "$USERR4",    "$USERR5",     "$USRTIMER",   "$VISRETAIN",
     "$WORLDVIEW"});

struct Since {
  std::string_view name, version;
};
constexpr auto newer = std::to_array<Since>({{"$3DDWFPREC", r2007},
                                             {"$CAMERADISPLAY", r2007},
                                             {"$CAMERAHEIGHT", r2007},
                                             {"$CMATERIAL", r2007},
                                             {"$CSHADOW", r2007},
                                             {"$DGNFRAME", r2007},
                                             {"$DIMARCSYM", r2007},
                                             {"$DIMASSOC", r2004},
                                             {"$DIMFXL", r2007},
                                             {"$DIMFXLON", r2007},
                                             {"$DIMJOGANG", r2007},
                                             {"$DIMLTEX1", r2007},
                                             {"$DIMLTEX2", r2007},
                                             {"$DIMLTYPE", r2007},
                                             {"$DIMTFILL", r2007},
                                             {"$DIMTFILLCLR", r2007},
                                             {"$DIMTXTDIRECTION", r2010},
                                             {"$DWFFRAME", r2007},
                                             {"$HALOGAP", r2004},
                                             {"$HIDETEXT", r2004},
                                             {"$INDEXCTL", r2004},
                                             {"$INTERFERECOLOR", r2007},
                                             {"$INTERFEREOBJVS", r2007},
                                             {"$INTERFEREVPVS", r2007},
                                             {"$INTERSECTIONCOLOR", r2004},
                                             {"$INTERSECTIONDISPLAY", r2004},
                                             {"$LASTSAVEDBY", r2004},
                                             {"$LATITUDE", r2007},
                                             {"$LENSLENGTH", r2007},
                                             {"$LIGHTGLYPHDISPLAY", r2007},
                                             {"$LOFTANG1", r2007},
                                             {"$LOFTANG2", r2007},
                                             {"$LOFTMAG1", r2007},
                                             {"$LOFTMAG2", r2007},
                                             {"$LOFTNORMALS", r2007},
                                             {"$LOFTPARAM", r2007},
                                             {"$LONGITUDE", r2007},
                                             {"$NORTHDIRECTION", r2007},
                                             {"$OBSCOLOR", r2004},
                                             {"$OBSLTYPE", r2004},
                                             {"$PROJECTNAME", r2004},
                                             {"$PSOLHEIGHT", r2007},
                                             {"$PSOLWIDTH", r2007},
                                             {"$REALWORLDSCALE", r2007},
                                             {"$REQUIREDVERSIONS", r2013},
                                             {"$SHADOWPLANELOCATION", r2007},
                                             {"$SHOWHIST", r2007},
                                             {"$SOLIDHIST", r2007},
                                             {"$SORTENTS", r2004},
                                             {"$STEPSIZE", r2007},
                                             {"$STEPSPERSEC", r2007},
                                             {"$TILEMODELIGHTSYNCH", r2007},
                                             {"$TIMEZONE", r2007},
                                             {"$XCLIPFRAME", r2004}});

}  // namespace

bool is_r12_variable(std::string_view name) {
  return std::ranges::binary_search(since_r12, name) || is_r12_variable_only(name);
}

bool is_r12_variable_only(std::string_view name) {
  return std::ranges::binary_search(of_r12_alone, name);
}

std::string_view first_version_of_variable(std::string_view name) {
  const auto found = std::ranges::lower_bound(newer, name, {}, &Since::name);
  return found != newer.end() && found->name == name ? found->version : r12;
}

}  // namespace velmar::drawing
