#include "basic/conversion.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/entities.h"
#include "host/point.h"

// The host does the geometry, on a line that is drawn for it. Where the host fails, the line stays.
namespace velmar {

double Velmar16::Angle2P(Value& X1, Value& Y1, Value& X2, double& Y2) {
  const basic::Separators separators = system().separators();
  const host::Point start{basic::number(X1, separators), basic::number(Y1, separators), 0};
  const host::Point end{basic::number(X2, separators), Y2, 0};

  const host::Line line = model_space().AddLine(start, end);
  line.Length();  // Kept: read for nothing, but a host may refuse it.
  const double angle = line.Angle();
  line.Delete();
  return angle;
}

double Velmar16::DisP(Value& startPoint, Value& EndPoint, bool& Visibility) {
  const host::Point start = host::to_point(startPoint), end = host::to_point(EndPoint);

  const host::Line line = model_space().AddLine(start, end);
  const double length = line.Length();
  line.Angle();  // Kept: as the length above.
  if (!Visibility) {
    line.Visible(false);
    line.Delete();
  }
  return length;
}

}  // namespace velmar
