#include "cli/batch_report.h"

#include <array>

#include "cli/json.h"
#include "drawing/error.h"

namespace velmar::cli {
namespace {

constexpr std::string_view csv_head =
    "drawing,status,exit_code,seconds,added,modified,erased,saved_to,error\n";

std::string csv_field(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == text.npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? "\"\"" : std::string(1, c);
  return quoted + "\"";
}

std::string csv_row(const BatchRow& row) {
  std::array<char, 32> seconds{};
  std::snprintf(seconds.data(), seconds.size(), "%.3f", row.seconds);
  return csv_field(row.drawing) + "," + row.status + "," + std::to_string(row.exit_code) + "," +
         seconds.data() + "," + std::to_string(row.added) + "," + std::to_string(row.modified) +
         "," + std::to_string(row.erased) + "," + csv_field(row.saved_to) + "," +
         csv_field(row.error) + "\n";
}

std::string json_row(const BatchRow& row) {
  return to_text(Json{{"drawing", row.drawing},
                      {"status", row.status},
                      {"exit_code", row.exit_code},
                      {"seconds", row.seconds},
                      {"added", row.added},
                      {"modified", row.modified},
                      {"erased", row.erased},
                      {"saved_to", row.saved_to},
                      {"error", row.error}});
}

/// The first field of a row of ours, and what follows its comma.
std::pair<std::string, std::string_view> first_field(std::string_view line) {
  std::string field;
  std::size_t at = 0;
  if (!line.starts_with('"')) {
    at = std::min(line.find(','), line.size());
    field = line.substr(0, at);
  } else {
    for (at = 1; at < line.size(); ++at) {
      if (line[at] != '"') {
        field += line[at];
      } else if (at + 1 < line.size() && line[at + 1] == '"') {
        field += line[at++];
      } else {
        break;
      }
    }
    ++at;
  }
  return {field, line.substr(std::min(at + 1, line.size()))};
}

}  // namespace

BatchReport::BatchReport(const std::filesystem::path& file, bool resume)
    : name_(file.string()), csv_(file.extension() == ".csv") {
  std::error_code none;
  const bool goes_on = resume && std::filesystem::file_size(file, none) > 0 && !none;
  if (goes_on) read(file);
  out_.open(file, std::ios::binary | (goes_on ? std::ios::app : std::ios::trunc));
  if (goes_on) out_ << "\n";  // a row that was cut off ends here; empty lines are nothing
  if (csv_ && !goes_on) out_ << csv_head;
  if (!out_.flush()) throw drawing::Error(name_ + ": the report cannot be written");
}

void BatchReport::read(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  for (std::string line; std::getline(in, line);) {
    if (csv_) {
      const auto [drawing, rest] = first_field(line);
      const auto [status, more] = first_field(rest);
      if (!more.empty()) statuses_[drawing] = status;
      continue;
    }
    const Json row = Json::parse(line, nullptr, false);
    if (row.is_object() && row.contains("drawing") && row.contains("status")) {
      statuses_[row["drawing"].get<std::string>()] = row["status"].get<std::string>();
    }
  }
}

bool BatchReport::is_done(const std::string& drawing) const {
  const auto found = statuses_.find(drawing);
  return found != statuses_.end() && found->second == "done";
}

void BatchReport::add(const BatchRow& row) {
  if (!out_.is_open()) return;
  out_ << (csv_ ? csv_row(row) : json_row(row)) << std::flush;
  if (!out_) throw drawing::Error(name_ + ": the report cannot be written");
}

}  // namespace velmar::cli
