#include <cstddef>
#include <string>
#include <vector>

#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {

void Velmar16::Delete_OLE() {
  constexpr std::size_t at_most = 200;  // Kept: the next run removes the next ones
  host::ResumeNext step;
  std::vector<std::string> handles;
  step([&] {
    for (const host::Entity& candidate : model_space()) {
      if (handles.size() == at_most) return;
      std::string class_name;
      step([&] { class_name = candidate.ObjectName(); });
      if (class_name == host::Ole::class_name) {
        step([&] { handles.push_back(candidate.Handle()); });
      }
    }
  });
  for (const std::string& handle : handles) {
    Value deleted = handle;
    step([&] { Del(deleted); });
  }
  step([&] { utility().Prompt(new_line(autocad_ready)); });
}

}  // namespace velmar
