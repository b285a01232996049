#pragma once

#include <string>
#include <string_view>

#include "component/system.h"

namespace velmar {

/// What the user answered the last time, by the name of the question.
inline std::string remembered_answer(const System& system, std::string_view key,
                                     std::string_view otherwise) {
  std::string answer = system.setting({"Velmar", "Key", std::string(key)});
  return answer.empty() ? std::string(otherwise) : answer;
}

inline void remember_answer(System& system, std::string_view key, std::string_view answer) {
  system.save_setting({"Velmar", "Key", std::string(key)}, answer);
}

}  // namespace velmar
