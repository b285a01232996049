// Batches and folder commands that are stopped: by a kill that nobody can catch, and by Ctrl-C.

#include <gtest/gtest.h>

#include <fstream>

#include "cli/program.h"

namespace velmar::cli {
namespace {

/// Twelve drawings in `in`, what a single run makes of each as `once.dxf`, a batch of one job at a
/// time as `batch`; `rows` counts what the report has, `child` is the job that runs.
constexpr const char* setting = R"sh(
mkdir in
cp "$CORPUS/dxf-parser/api-cw750-details.dxf" once.dxf
for i in 01 02 03 04 05 06 07 08 09 10 11 12; do cp once.dxf in/$i.dxf; done
velmar call -d once.dxf -a 2 -a 2 ScaleXY --save >ignored
batch() { exec velmar batch ScaleXY -a 2 -a 2 --save -j 1 --report r.csv "$@" in >out 2>err; }
rows() { [ -f r.csv ] && grep -c '^.*in/' r.csv; }
child() { cat /proc/$1/task/$1/children 2>ignored; }
until_rows() {
  for i in $(seq 600); do [ "$(rows)" -ge "$1" ] 2>ignored && return; sleep 0.05; done
}
all_once() { for f in in/*.dxf; do cmp $f once.dxf || echo "$f differs"; done; }
)sh";

Outcome run(const std::string& script) {
  const TemporaryFolder work;
  const auto file = work.path() / "script";
  std::ofstream(file) << setting << script;
  return run_script(file, work.path());
}

TEST(StoppedBatch, AWorkerThatIsKilledFailsAloneAndIsDoneOnResuming) {
  const Outcome outcome = run(R"sh(
(batch) & pid=$!
until_rows 2
for i in $(seq 200); do
  kill -9 $(child $pid) 2>ignored
  sleep 0.01
  grep -q crashed r.csv && break
done
wait $pid; echo "ended with $?"
grep -q crashed r.csv && echo some crashed
(batch --resume); echo "then with $?"
all_once
)sh");
  EXPECT_EQ(outcome.out, "ended with 4\nsome crashed\nthen with 0\n") << outcome.err;
}

TEST(StoppedBatch, IsResumedWithNothingAppliedTwice) {
  const Outcome outcome = run(R"sh(
for after in 2 5 9; do
  (batch --resume) & pid=$!
  until_rows $after
  kill -9 $pid
  wait $pid 2>ignored
done
(batch --resume); echo "ended with $?"
all_once
)sh");
  EXPECT_EQ(outcome.out, "ended with 0\n") << outcome.err;
}

TEST(StoppedBatch, IsResumedWhereAJournalWasCutOff) {
  const Outcome outcome = run(R"sh(
mkdir r.csv.journals
printf 'velmar-journal cut' >r.csv.journals/3-03.dxf.journal
(batch --resume); echo "ended with $?"
all_once
)sh");
  EXPECT_EQ(outcome.out, "ended with 0\n") << outcome.err;
}

/// The method would purge and save all of them.
TEST(CancelledFolder, LeavesEveryFileAsItWas) {
  const Outcome outcome = run(R"sh(
rm -r in; mkdir in before
for i in $(seq 200); do cp "$CORPUS/acadsharp/sample_AC1015_ascii.dxf" before/$i.dwg; done
cp before/* in/
velmar call PurgeALLFolder "$PWD/in/" >out 2>err & pid=$!
for i in $(seq 600); do cmp -s in/2.dwg before/2.dwg && cmp -s in/100.dwg before/100.dwg || break; sleep 0.02; done
kill -INT $pid
wait $pid; echo "ended with $?"
cat err
diff -r before in && echo as they were
ls "${TMPDIR:-/tmp}"/velmar-*.journal 2>ignored
)sh");
  EXPECT_EQ(outcome.out, "ended with 130\ncancelled; every file is as it was\nas they were\n")
      << outcome.err;
}

TEST(FinishedFolder, IsPurgedWhole) {
  const Outcome outcome = run(R"sh(
mkdir folder
for i in $(seq 200); do cp "$CORPUS/acadsharp/sample_AC1015_ascii.dxf" folder/$i.dwg; done
velmar call PurgeALLFolder "$PWD/folder/" >out; echo "ended with $?"
for f in folder/*.dwg; do
  cmp -s $f folder/1.dwg || echo "$f differs from the first"
  cmp -s $f "$CORPUS/acadsharp/sample_AC1015_ascii.dxf" && echo "$f is not purged"
done
)sh");
  EXPECT_EQ(outcome.out, "ended with 0\n") << outcome.err;
}

}  // namespace
}  // namespace velmar::cli
