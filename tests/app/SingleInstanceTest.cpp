#include "app/SingleInstance.h"

#include <gtest/gtest.h>

#include <QTest>
#include <cstdlib>
#include <future>

#include "tests/support/Files.h"

namespace zorva::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

TEST(SingleInstance, TheLockDecidesAndTheCallIsHeardOnlyInAFolderOfOnesOwn) {
    const TemporaryFolder folder;
    const fs::path data = folder / "data", runtime = folder / "run";
    for (const fs::path& made : {data, runtime}) fs::create_directory(made);
    fs::create_symlink(data, folder / "another path");
    using Row = std::tuple<const char*, fs::path, fs::perms, bool, bool>;
    for (const auto& [name, place, mode, isFrozen, isCalled] : {
             Row{"the first is called", runtime, fs::perms{0700}, false, true},
             {"the first does not answer", runtime, fs::perms{0700}, true, false},
             {"others may read the folder, and connect", runtime, fs::perms{0755}, false, false},
             {"no runtime folder", folder / "none", fs::perms{0700}, false, false},
             {"a name too long", folder / std::string(100, '/') / "run", fs::perms{0700}, false, false},
         }) {
        SCOPED_TRACE(name);
        setenv("XDG_RUNTIME_DIR", place.c_str(), 1);
        fs::permissions(runtime, mode);
        SingleInstance first(data);
        int calls = 0;
        first.OnSecondStart([&calls] { ++calls; });
        ASSERT_TRUE(first.MayPlay());
        auto second = std::async(std::launch::async, [&, patience = isCalled ? 20s : 20ms] {
            const SingleInstance other(folder / "another path", patience);
            return std::pair(other.MayPlay(), other.HasCalledFirst());
        });
        if (isFrozen) second.wait();
        EXPECT_TRUE(QTest::qWaitFor([&] { return second.wait_for(0s) == std::future_status::ready; }));
        EXPECT_EQ(second.get(), std::pair(false, isCalled));
        EXPECT_EQ(calls, isCalled ? 1 : 0);
    }
    EXPECT_TRUE(SingleInstance(data).MayPlay()) << "the lock is gone with the first";
    EXPECT_TRUE(SingleInstance(folder / "missing").MayPlay()) << "what cannot be locked";
}

}  // namespace
}  // namespace zorva::test
