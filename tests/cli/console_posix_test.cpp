#include <gmock/gmock.h>

#include <fstream>

#include "cli/program.h"
#include "cli/terminal.h"

// The console as somebody at a terminal meets it: keys and what is shown.

namespace velmar::cli {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr std::string_view escape = "\x1B", ctrl_c = "\x03", ctrl_d = "\x04", up = "\x1B[A",
                           left = "\x1B[D", tab = "\t", enter = "\r";

class Console : public testing::Test {
 protected:
  Console() {
    std::filesystem::copy_file(VELMAR_CORPUS "/acadsharp/sample_AC1015_ascii.dxf", plan);
  }

  TemporaryFolder folder;
  const std::filesystem::path plan = folder.path() / "plan.dxf";
};

TEST_F(Console, EditsCompletesAndRemembersLines) {
  {
    Terminal user({"console", "plan.dxf"}, folder.path());
    user.expect("Command: ");
    user.type("RP 11 5");
    for (int i = 0; i < 6; ++i) user.type(left);
    EXPECT_THAT(user.enter("U"), HasSubstr("\n15\n"));
    user.type("getto");
    user.type(tab);  // to what they have in common, then a list
    user.type(tab);
    EXPECT_THAT(user.expect("GetTotalLength  "), HasSubstr("GetTotalArea  "));
    user.type(ctrl_c);
    user.expect("Command: ");
    user.type("Hatch_L\tLaye\t");
    user.expect("Layer");
    user.type(escape);
    user.expect("*Cancel*\nCommand: ");
    user.type("quit\r");
    EXPECT_EQ(user.exit_code(), 0);
  }
  Terminal user({"console"}, folder.path());
  user.expect("Command: ");
  user.type(up);
  user.type(up);
  EXPECT_THAT(user.enter(""), HasSubstr("\n15\n")) << "of the session before";
}

TEST_F(Console, AsksAgainAfterAWrongAnswerAndCancelsAQuestionOnly) {
  Terminal user({"console", "plan.dxf"}, folder.path());
  user.expect("Command: ");
  user.type("omove\r");
  user.expect("Enter Hndl: ");
  user.type(escape);
  EXPECT_THAT(user.expect("Command: "), HasSubstr("Hndl is missing"));
  user.type("rdn 7\r");
  user.expect("Enter A: ");
  user.type("two\r");
  EXPECT_THAT(user.expect("Enter A: "), HasSubstr("A must be a number, not \"two\""));
  EXPECT_THAT(user.enter("2"), HasSubstr("\n6\n"));
  user.type("changelettercase\r");
  user.expect("Select Text ");
  user.type("nothing\r");
  EXPECT_THAT(user.expect("Select Text "), HasSubstr("Requires an entity"));
  user.type("(handent \"3CF\")\r");
  user.expect("Upper,Lower,Title,Invert");
  EXPECT_THAT(user.enter("l"), HasSubstr("1 modified"));
  EXPECT_THAT(user.enter("UNDO"), HasSubstr("ChangeLetterCase is undone"));
  user.type(ctrl_d);
  user.exit_code();
}

TEST_F(Console, AsksBeforeChangesAreLost) {
  const std::string before = read_file(plan);
  Terminal user({"console", "plan.dxf"}, folder.path());
  user.expect("Command: ");
  EXPECT_THAT(user.enter("Text note 1 2 0 5"), HasSubstr("0 modified, 1 added, 0 erased"));
  user.type(ctrl_d);
  user.expect("Save the changes to plan.dxf? ");
  user.type(escape);
  user.expect("Command: ");
  EXPECT_EQ(read_file(plan), before);
  user.type("close\r");
  user.expect("Save the changes to plan.dxf? ");
  user.type("no\r");
  EXPECT_THAT(user.expect("Command: "), HasSubstr("its changes are dropped"));
  user.enter("open plan.dxf");
  user.enter("Text note 1 2 0 5");
  user.type("quit\r");
  user.expect("Save the changes to plan.dxf? ");
  user.type("y\r");
  EXPECT_EQ(user.exit_code(), 0);
  EXPECT_THAT(read_file(plan), HasSubstr("note"));
}

/// A drawing large enough for its scaling to take a while.
void write_many_lines(const std::filesystem::path& path) {
  std::ofstream file(path);
  file << "0\nSECTION\n2\nENTITIES\n";
  constexpr int count = 200'000;
  for (int i = 0; i < count; ++i) {
    file << "0\nLINE\n5\n"
         << std::hex << i + 256 << std::dec << "\n8\n0\n10\n"
         << i << ".0\n20\n0.0\n30\n0.0\n11\n"
         << i << ".0\n21\n5.0\n31\n0.0\n";
  }
  file << "0\nENDSEC\n0\nEOF\n";
}

TEST_F(Console, EndsARunningMethodOnCtrlCAndKeepsWhatItDidAsOneStep) {
  write_many_lines(folder.path() / "many.dxf");
  Terminal user({"console", "many.dxf"}, folder.path());
  user.expect("Command: ");
  user.type("scalexy\r");
  user.expect("= ");
  user.type("2\r");
  user.expect("= ");
  user.type("3\r");
  user.expect("\n");  // it runs
  ::usleep(20'000);
  user.type(ctrl_c);
  const std::string written = user.expect("Command: ");
  EXPECT_THAT(written, HasSubstr("*Cancel*"));
  EXPECT_THAT(written, Not(HasSubstr("200000 ")));
  EXPECT_THAT(user.enter("rup 11 5"), HasSubstr("\n15\n")) << "the next command runs";
  if (written.find("UNDO") != written.npos) user.enter("undo");
  user.type("quit\r");  // nothing to be asked about
  EXPECT_EQ(user.exit_code(), 0);
}

TEST_F(Console, FollowsTheSizeOfTheWindow) {
  Terminal user({"console"}, folder.path());
  user.expect("Command: ");
  user.resize(20);
  user.type("UpperCase 'a long line that does not fit'");
  EXPECT_THAT(user.enter(""), HasSubstr("\nA LONG LINE THAT DOES NOT FIT\n"));
  EXPECT_THAT(user.enter("UpperCase 'töne'"), HasSubstr("\nTÖNE\n"));
}

TEST_F(Console, ShowsNothingThatATerminalWouldObey) {
  std::string bytes = read_file(plan);
  for (std::size_t at = 0; (at = bytes.find("\nLayer2\n", at)) != bytes.npos; ++at) {
    bytes.replace(at, 8, "\nL\x1B[2J\\U+202E\n");
  }
  std::ofstream(plan, std::ios::binary) << bytes;
  Terminal user({"console", "plan.dxf"}, folder.path());
  user.expect("Command: ");
  EXPECT_THAT(user.enter("layers"), HasSubstr("L\\x1B[2J\\u202E"));
  user.type("no_such\r");
  EXPECT_THAT(user.expect("Command: "), HasSubstr("\x1B[31mthere is no method"));
  Terminal plain({"console"}, folder.path(), {"NO_COLOR=1"});
  plain.expect("Command: ");
  EXPECT_THAT(plain.enter("no_such"), Not(HasSubstr("\x1B[31m")));
}

}  // namespace
}  // namespace velmar::cli
