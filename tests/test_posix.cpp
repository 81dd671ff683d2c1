// What only POSIX systems can be made to do: full disks, pipes and devices with paths, closed streams, little memory.

#include "CommandFolder.h"
#include "Sanitizer.h"
#include "skyframe/generate/Generate.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/platform/ChildProcesses.h"
#include "skyframe/platform/OutputFile.h"

namespace skyframe::test {
namespace {

TEST(Posix, AFullDiskAndAFullDeviceAreNoticed) {
  const CJobFolder job("platform_full");
  job.Write(".txt", "old");
  for (const char* const szText : {"n", ""}) {
    std::optional<CFullDisk> full(std::in_place);
    COutputFile file(job.GetPath(".txt"));
    file.GetStream() << szText;
    EXPECT_EQ(file.Commit(), *szText == '\0');
    EXPECT_EQ(file.GetError(), *szText == '\0' ? "" : "File too large");
    full.reset();
    EXPECT_EQ(job.Read(".txt"), *szText == '\0' ? "" : "old");
  }
  for (const auto& [szDevice, szReason] : {std::pair("/dev/null", ""), {"/dev/full", "No space left on device"}}) {
    COutputFile device(szDevice, OutputPlace::FileOrDevice);
    device.GetStream() << std::string(3U << 20U, 'n');
    EXPECT_EQ(device.Commit(), *szReason == '\0');
    EXPECT_EQ(device.GetError(), szReason);
    EXPECT_EQ(COutputFile(szDevice).GetError(), "is not a regular file");
  }
  for (const Strings& arguments : {Strings{"generate", "arch"}, {"--help"}}) {
    std::ofstream stream("/dev/full");
    std::ostringstream err;
    EXPECT_EQ(host::RunCommandLine(arguments, stream, err), 1);
    EXPECT_EQ(err.str(), "cannot write the standard output: No space left on device\n");
  }
  const CPipe pipe;
  EXPECT_EQ(COutputFile(pipe.GetPath()).GetError(), "is a symbolic link");
  COutputFile stream(pipe.GetPath(), OutputPlace::FileOrDevice);
  stream.GetStream() << "through";
  EXPECT_TRUE(stream.Commit());
  EXPECT_EQ(pipe.Read(), "through");
}

TEST(Posix, ChildrenEndWithTheirParentAndTellWhatEndedThem) {
  const CJobFolder job("platform_children");
  const std::string strOutput = job.GetPath(".txt");
  const auto runShell = [&](const std::string& strText) {
    CChildProcesses children;
    std::string strReason;
    EXPECT_NE(children.Start("/bin/sh", {"-c", strText}, strOutput, strReason), 0) << strReason;
    return children.Wait();
  };
  const ProcessEnd killed = runShell("kill -9 $$");
  EXPECT_EQ(std::tuple(killed.bByItself, killed.nCode), std::tuple(false, 9U));
  const ProcessEnd ended = runShell("cat; echo out; echo err >&2; exit 7");
  EXPECT_EQ(std::tuple(ended.bByItself, ended.nCode, job.Read(".txt")), std::tuple(true, 7U, "out\nerr\n"));

  job.Write(".txt", "");
  const int nParent = StartProcess([&] { return runShell("echo $$; exec sleep 1000").bByItself ? 0 : 1; });
  while (!job.Read(".txt").ends_with('\n')) PauseShortly();
  const int nChild = std::stoi(job.Read(".txt"));
  Interrupt(nParent);
  EXPECT_EQ(WaitFor(nParent), -1);
  EXPECT_FALSE(IsRunning(nChild));
}

TEST(Posix, DialogsNeedWindows) {
  const CommandOutcome outcome = CCommandFolder::Call({"run", "--dialogs", SKYFRAME_SOURCE_DIR "/examples/dome.json"});
  EXPECT_EQ(std::tuple(outcome.nStatus, outcome.strErr),
            std::tuple(2, "--dialogs: no screen, or no windows in this installation\n"));
}

TEST(Posix, NoneTakesThePlaceOfAClosedStandardStream) {
  const CJobFolder job("platform_closed");
  const int nProcess = StartProcess([&job] {
    CloseStandardOutput();
    COutputFile file(job.GetPath(".txt"));
    file.GetStream() << "text";
    return HasStandardOutput() || !file.Commit() ? 1 : 0;
  });
  EXPECT_EQ(WaitFor(nProcess), 0);
  EXPECT_EQ(job.Read(".txt"), "text");
}

TEST(Posix, AResultThatCannotBeWrittenLeavesTheOldOne) {
  const CCommandFolder job;
  const std::pair<std::string, std::string> cases[] = {
      {R"({"type": "static", "nonlinear": false, "combination": {"0": 1}})", "_StaticLinearSol.txt"},
      {R"({"type": "static"})", "_StaticNonlinearSol.txt"},
      {R"({"type": "modal", "modes": 1})", ".mode"},
  };
  for (const auto& [strAnalysis, strResult] : cases) {
    EXPECT_EQ(job.Solve(MakeCantilever("111111", strAnalysis)).nStatus, 0) << strResult;
    job.Write(strResult, "old");
    {
      const CFullDisk full;
      EXPECT_EQ(job.Call({"run", job.GetPath(".json"), "--log", "/dev/null"}).nStatus, 1);
    }
    EXPECT_EQ(job.Read(strResult), "old") << strResult;
  }
}

#ifndef SKYFRAME_TEST_ASAN
TEST(Posix, LackOfMemoryIsAnError) {
  host::Job job = host::GenerateArch({});
  job.loads.resize(30000, job.loads[0]);
  const std::string strText = host::FormatJob(job);
  for (std::size_t nMegabytes = 0; nMegabytes < 36; nMegabytes += 3) {
    const int nProcess = StartProcess([&] {
      LimitMemory(nMegabytes << 20U);
      const host::JobFile file = host::ParseJob(strText);
      return file.errors.empty() || file.errors[0].strReason == "out of memory" ? 0 : 1;
    });
    EXPECT_EQ(WaitFor(nProcess), 0) << nMegabytes;
  }
}
#endif

}  // namespace
}  // namespace skyframe::test
