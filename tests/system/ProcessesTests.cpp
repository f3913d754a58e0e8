#include <gmock/gmock.h>
#include <unistd.h>

#include <csignal>

#include "Processes.h"

TEST(WorkersTest, ADeadWorkerCostsItsOwnJobOnly) {
  std::vector<std::string> results;
  const auto code = System::RunInWorkers(
      12,
      [](int index, std::string& text) {
        if (index == 3) ::raise(SIGKILL);
        if (index == 5) ::_exit(0);
        text = std::string(static_cast<std::size_t>(index) * 100000, 'x');
        return index;
      },
      [](int) {},
      [&](int index, const System::TWorkerResult& worker) {
        EXPECT_EQ(index, static_cast<int>(results.size()));
        results.push_back(worker.Died ? "died" : std::to_string(worker.Text.size() + worker.Code));
      });
  EXPECT_EQ(code, System::Success);
  EXPECT_THAT(results, testing::ElementsAre("0", "100001", "200002", "died", "400004", "died", "600006", "700007",
                                            "800008", "900009", "1000010", "1100011"));
}