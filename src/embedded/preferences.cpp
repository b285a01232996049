#include "embedded/preferences.h"

#include "basic/conversion.h"
#include "embedded/errors.h"

namespace velmar::embedded {
namespace {

std::int32_t within(const Value& value, std::int32_t least, std::int32_t most) {
  const auto number = basic::convert<std::int32_t>(value);
  if (number < least || number > most) throw failure(HostError::invalid_input);
  return number;
}

}  // namespace

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
    case Member::AutoSaveInterval:
      return session_->auto_save_interval;
    case Member::CreateBackup:
      return session_->create_backup;
    case Member::IncrementalSavePercent:
      return session_->incremental_save_percent;
    case Member::SaveAsType:
      return session_->save_as_type;
    default:
      throw no_such_member(member);
  }
}

void OpenSavePreferences::put(Member member, const Value& value) {
  switch (member) {
    case Member::AutoSaveInterval:
      session_->auto_save_interval = within(value, 0, 600);
      return;
    case Member::CreateBackup:
      session_->create_backup = basic::convert<bool>(value);
      return;
    case Member::IncrementalSavePercent:
      session_->incremental_save_percent = within(value, 0, 100);
      return;
    case Member::SaveAsType: {
      const auto type = basic::convert<std::int32_t>(value);
      if (!find_save_format(type)) throw failure(HostError::invalid_input);
      session_->save_as_type = type;
      return;
    }
    default:
      throw no_such_member(member);
  }
}

}  // namespace velmar::embedded
