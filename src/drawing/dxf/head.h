#pragma once

#include <cstdint>
#include <string_view>

namespace velmar::drawing::dxf {

/// What every walk needs, from the first tags of a record. Views point into the source.
struct Head {
  std::string_view kind;
  std::string_view handle, owner, layer;  // raw
  std::string_view marker;                // the subclass that follows AcDbEntity
  std::int32_t color = 256;
  bool in_paper_space = false;
};

/// Collects a head tag by tag, until complete(): what stands behind a second subclass marker, or in
/// extended data, belongs to the body.
class HeadCollector {
 public:
  /// Begins a head.
  void begin(std::string_view kind) {
    head_ = Head();
    head_.kind = kind;
    handle_code_ = kind == "DIMSTYLE" ? 105 : 5;
    in_group_ = complete_ = false;
  }

  bool complete() const { return complete_; }
  const Head& head() const { return head_; }

  /// `number` reads the value as an integer, when asked.
  template <class Number>
  void take(int code, std::string_view text, Number number) {
    if (code == 102) {
      in_group_ = !text.empty() && text.front() == '{';
    } else if (code == 100) {
      complete_ = text != "AcDbEntity";
      if (complete_) head_.marker = text;
    } else if (code >= 1000) {
      complete_ = true;
    } else if (!in_group_) {
      take_field(code, text, number);
    }
  }

 private:
  template <class Number>
  void take_field(int code, std::string_view text, Number number) {
    switch (code) {
      case 5:
      case 105:
        if (code == handle_code_ && head_.handle.empty()) head_.handle = text;
        return;
      case 330:
        if (head_.owner.empty()) head_.owner = text;
        return;
      case 8:
        if (head_.layer.empty()) head_.layer = text;
        return;
      case 62:
        head_.color = number();
        return;
      case 67:
        head_.in_paper_space = number() == 1;
        return;
      default:
        return;
    }
  }

  Head head_;
  int handle_code_ = 5;
  bool in_group_ = false;
  bool complete_ = false;
};

}  // namespace velmar::drawing::dxf
