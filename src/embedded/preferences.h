#pragma once

#include "embedded/plain_object.h"
#include "embedded/session.h"

namespace velmar::embedded {

/// The settings of the application; of their pages only OpenSave is there.
class Preferences final : public PlainObject {
 public:
  explicit Preferences(std::shared_ptr<Session> session) : session_(std::move(session)) {}

  Value get(Member member) override;

 private:
  std::shared_ptr<Session> session_;
};

/// The page on files. SaveAsType is what SaveAs writes where it is told nothing else; a value that
/// is none of the enumeration is refused. Of the other members only the values are kept: nothing is
/// saved by itself, and a save always keeps the old file until the new one is whole.
class OpenSavePreferences final : public PlainObject {
 public:
  explicit OpenSavePreferences(std::shared_ptr<Session> session) : session_(std::move(session)) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;

 private:
  std::shared_ptr<Session> session_;
};

}  // namespace velmar::embedded
