#include <windows.h>

#include "drawing/windows_handle.h"
#include "saving.h"

namespace velmar::drawing {
namespace {

TEST_F(Saving, IsRefusedForAFileThatIsReadOnlyOrThatAnotherProgramHolds) {
  Drawing drawing = Drawing::open(path_);
  change(drawing, "two");
  const std::string before = get(path_);
  ::SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_THROW(drawing.save(path_), Error);
  ::SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
  for (const DWORD shared : {0, FILE_SHARE_READ}) {
    const WindowsHandle theirs(
        ::CreateFileW(path_.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(theirs.valid());
    EXPECT_THROW(drawing.save(path_), Error) << shared;
  }
  EXPECT_EQ(get(path_), before);
  EXPECT_EQ(files(), 1u);
  drawing.save(path_);
  EXPECT_FALSE(drawing.is_changed());
}

TEST_F(Saving, KeepsAHiddenFileHidden) {
  Drawing drawing = Drawing::open(path_);
  ::SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_HIDDEN);
  change(drawing, "two");
  drawing.save(path_);
  EXPECT_TRUE(::GetFileAttributesW(path_.c_str()) & FILE_ATTRIBUTE_HIDDEN);
}

}  // namespace
}  // namespace velmar::drawing
