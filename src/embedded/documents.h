#pragma once

#include "embedded/plain_object.h"
#include "embedded/session.h"

namespace velmar::embedded {

/// The open drawings, in the order in which they were opened. They are found by position, by file
/// name or by full name; the letter case of names does not count.
class Documents final : public PlainObject {
 public:
  explicit Documents(std::shared_ptr<Session> session) : session_(std::move(session)) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> values) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  Value item(std::span<Value> values) const;
  void close_all();

  std::shared_ptr<Session> session_;
};

}  // namespace velmar::embedded
