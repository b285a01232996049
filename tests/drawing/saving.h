#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "drawing/drawing.h"
#include "sample_text.h"

namespace velmar::drawing {

namespace fs = std::filesystem;

/// A folder of its own with "plan.dxf" in it, of one text, 2F.
class Saving : public testing::Test {
 protected:
  Saving() {
    folder_ = fs::temp_directory_path() / ("velmar-" + std::to_string(std::random_device{}()));
    fs::create_directory(folder_);
    path_ = folder_ / "plan.dxf";
    put(path_, drawing_of("AC1015",
                          "0 TEXT 5 2F 330 1F 100 AcDbEntity 8 Walls 100 AcDbText 10 1.0 20 2.0 30 "
                          "0.0 40 2.5 1 one 100 AcDbText "));
  }
  ~Saving() override { fs::remove_all(folder_); }

  static void put(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
  static std::string get(const fs::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
  }
  static void change(Drawing& drawing, const std::string& to) {
    const RecordId id = drawing.find(0x2F);
    Entity entity = drawing.read(id);
    std::get<Text>(entity.body).text = to;
    drawing.write(id, entity);
  }
  std::size_t files() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
  }

  fs::path folder_, path_;
};

}  // namespace velmar::drawing
