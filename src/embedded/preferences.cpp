#include "embedded/preferences.h"

#include "basic/conversion.h"
#include "embedded/errors.h"

namespace velmar::embedded {

Value Preferences::get(Member member) {
  switch (member) {
    case Member::Application:
      return session_->application.lock();
    case Member::OpenSave:
      return std::make_shared<OpenSavePreferences>(session_);
    default:
      throw no_such_member(member);
  }
}

Value OpenSavePreferences::get(Member member) {
  switch (member) {
    case Member::Application:
      return session_->application.lock();
    case Member::SaveAsType:
      return session_->save_as_type;
    default:
      throw no_such_member(member);
  }
}

void OpenSavePreferences::put(Member member, const Value& value) {
  if (member != Member::SaveAsType) throw no_such_member(member);
  const auto type = basic::convert<std::int32_t>(value);
  if (!find_save_format(type)) throw failure(HostError::invalid_input);
  session_->save_as_type = type;
}

}  // namespace velmar::embedded
