#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "basic/value.h"
#include "component/system.h"
#include "host/point.h"

namespace velmar {

using basic::Empty;
using basic::Value;

/// The published interface: its methods, with their published names, in its order. A parameter by
/// reference is in and out. Results that are Empty are the empty variant of an interactive command.
/// What a method fails with, and whether failures reach its caller, is in its row of the method
/// table.
class Velmar16 {
 public:
  explicit Velmar16(std::shared_ptr<System> system = std::make_shared<PlainSystem>());

  System& system() const { return *system_; }

  Empty RotateAllText(std::string LayerName, double RotatValue, bool& ALLT);

  // Entities by handle
  Empty GetBRec(Value& Hndl, std::string& ObjectName);
  Empty Del(Value& Handle);

  // Numbers
  double MAX(Value& N1, Value& N2);
  double MIN(Value& N1, Value& N2);

  // Texts, and a donut
  Empty Text(std::string& TextString, Value& X, Value& y, double& RO, double& H,
             std::string& LayerName, bool& Hidden, std::int32_t& Color, std::string& Hndltext);
  double GetC(std::string& DouHndl);
  Empty ReplaceT(std::string& OldT, std::string& NewT);
  Empty ReplaceTL(std::string& OldT, std::string& NewT, std::string& TLayer);

  // Numbers and points
  double Angle2P(Value& X1, Value& Y1, Value& X2, double& Y2);
  double Dis(Value& N1, Value& N2);
  double R(Value& N, double& A);
  double RUP(Value& Nmbr, double& dvdr);
  double RDN(Value& N, double& A);

  // Alignment
  Empty AlignDonut();
  double IDLast();
  Empty OMove(std::string& Hndl, double& L, bool& Ver, double& H, double& zzz);
  double Avr(Value& N1, Value& N2);
  double DisP(Value& startPoint, Value& EndPoint, bool& Visibility);
  Empty Alignement();
  Empty AlignDimension();

  // Replacement
  Empty ReplaceTag();
  Empty ReplaceInT(std::string& OldT, std::string& NewT, std::string& LayerName, bool& First,
                   bool& OnlyExOrNt);

  // Open drawings and their external references
  Empty Unload_TB();
  Empty Unload_Xref();
  Empty Tolerencee();
  Empty SaveAllDrawings();
  Empty SaveAllCurrentDrawings();
  Empty LoadAllCurrentDrawings();

  // Counts by layer and kind
  Empty Replace(std::string& LayerName, bool& CirVis);
  std::int16_t GetNOLayer(std::string LayerName);
  std::int16_t GetNType(std::string ObjectName);
  std::int16_t GetNTypeLayer(std::string ObjectName, std::string LayerName);
  double DisF(Value& Watar, Value& Dla);

  // Hatches, dimensions, scaling
  Empty Hatch(Value& L, Value& H, Value& X0, double& Y0);
  Empty HatchAligned(std::string& ObjHndl);
  Empty Sc(Value& PHndl, Value& Scl, Value& X, double& y);
  Empty DimAL(Value& X1, Value& Y1, Value& X2, double& Y2, std::string& DimStyle, bool& Acadw,
              double& dISt);
  Empty Mo2Lr(double& ObjHndl, std::string& LayerName, std::string& ObjectName);
  std::int16_t Bt(Value& Nc, Value& Nmin, Value& Nmax);
  Empty TextBar(Value& XT, double& YT, Value& D, Value& BM, std::int16_t& SP, Value& N, Value& Typ,
                std::string& AD);

  // Angles and folders
  double ArcSin(double& sin);
  double ArcCos(double& cos);
  std::string GetFolder(std::string& PathL);

  // Tools for everything of one layer or linetype
  Empty ReplaceLineByType();
  Empty Hatch_Layer(std::string& LayerName);
  Empty GetTotalLength();
  Empty GetTotalArea();
  Empty Dim_Layer(std::string& LayerName);
  Empty StrechText(std::string& TxtHndl, double& DistanceToText, bool& NoAsking);

  // Folders of drawings
  Empty PurgeALLFolder(std::string& Pathm);
  Empty ScaleXY(double& ScaleY, double& ScaleX);
  Empty FolderDwgDxf(std::string& Pathm);
  Empty FolderDGN(std::string& Pathm);
  Empty FolderDxfDwg(std::string& Pathm);
  std::int16_t GetNs(std::string& BName);
  std::string GetFileName(std::string& FileName);
  Empty DelFilNam(std::string& Pathm, std::string& TxtDel, std::string& FType);

  // Contents of texts
  Empty ChangeLetterCase();
  std::int16_t CountInText();
  Empty Joint2Text();
  Empty TextIndex();
  void Delete_OLE();

  // Colours and layers
  Empty ColLayerObj(std::int16_t& Color, std::string& LayerName, std::string& ObjectName);
  Empty ColDel(std::int16_t& Color, std::string& ObjectName);
  Empty ColDelLayer(std::int16_t& Color, Value& LayerName, std::string& ObjectName);
  Empty NmLayer(Value& StrB, std::string& StrA);
  Empty ColorToLayer(std::int32_t& Color, std::string& LayerName, std::string& ObjectName);
  Empty MLayer(std::string& LayerName, std::int32_t& Color);

  // Letter case
  std::string UpperCase(std::string& AsString);
  std::string LowerCase(std::string& AsString);
  std::string TitleCase(std::string& AsString);
  std::string ReverseCase(std::string& AsString);

  // Blocks and layouts
  Empty ExplodeBlock();
  Empty DeleteBlock();
  Empty ZoomLayouts();
  Empty DeleteLayouts(std::string& Pathm);
  void SlowDown(std::int32_t& MilliSeconds);

  // What outlives a call; each writer replaces the value before.
  Value BoxMinPoint, BoxMaxPoint;                            // by GetBRec: empty, or points
  host::Point CentrePoint;                                   // by GetC
  std::string LastTextHandle;                                // by Text
  bool title_block_unloaded = false, xref_unloaded = false;  // by Unload_TB and Unload_Xref

 private:
  std::shared_ptr<System> system_;
};

}  // namespace velmar
