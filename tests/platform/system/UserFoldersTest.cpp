#include "platform/system/UserFolders.h"

#include "support/ScopedFolder.h"
#include "support/ScopedVariable.h"

#include <gtest/gtest.h>

#include <fstream>

#include <pwd.h>
#include <unistd.h>

namespace QVM_NAMESPACE {
namespace {

using slantwise_tests::ScopedFolder;
using slantwise_tests::ScopedVariable;

TEST(UserFolders, StandWhereTheVariablesSay) {
    const ScopedVariable data("XDG_DATA_HOME", "/somewhere/data"), config("XDG_CONFIG_HOME", "/somewhere/config");
    EXPECT_EQ(userDataFolder(), "/somewhere/data/slantwise");
    EXPECT_EQ(userConfigFolder(), "/somewhere/config/slantwise");
}

TEST(UserFolders, StandInTheHomeWhereAVariableIsNotSetOrEmptyOrRelative) {
    const ScopedVariable home("HOME", "/home/ina");
    for (const std::optional<std::string>& value : {std::optional<std::string>(), {""}, {"data"}, {"./data"}}) {
        const ScopedVariable data("XDG_DATA_HOME", value), config("XDG_CONFIG_HOME", value);
        EXPECT_EQ(userDataFolder(), "/home/ina/.local/share/slantwise");
        EXPECT_EQ(userConfigFolder(), "/home/ina/.config/slantwise");
    }
}

TEST(UserFolders, TheHomeIsTheAccountsWhereNoVariableNamesIt) {
    const ScopedVariable home("HOME", std::nullopt), data("XDG_DATA_HOME", std::nullopt);
    const passwd* const account = getpwuid(getuid());
    ASSERT_TRUE(account);
    EXPECT_EQ(userDataFolder(), std::filesystem::path(account->pw_dir) / ".local/share/slantwise");
}

TEST(UserFolders, DataOfAllProgramsStandsInTheUsersFolderFirst) {
    const ScopedVariable home("HOME", "/home/ina"), data("XDG_DATA_HOME", std::nullopt);
    using Folders = std::vector<std::filesystem::path>;
    const ScopedVariable set("XDG_DATA_DIRS", "/opt/share:relative::/usr/share");
    EXPECT_EQ(sharedDataFolders(), (Folders{"/home/ina/.local/share", "/opt/share", "/usr/share"}));
    const ScopedVariable empty("XDG_DATA_DIRS", "");
    EXPECT_EQ(sharedDataFolders(), (Folders{"/home/ina/.local/share", "/usr/local/share", "/usr/share"}));
}

TEST(UserFolders, AreMadeWithThoseAboveThemForTheUserAlone) {
    const ScopedFolder place;
    const auto folder = place.path() / "a" / "b" / "slantwise";
    EXPECT_EQ(makeUserFolder(folder), std::error_code());
    for (auto made = folder; made != place.path(); made = made.parent_path())
        EXPECT_EQ(std::filesystem::status(made).permissions(), std::filesystem::perms::owner_all);
    EXPECT_EQ(makeUserFolder(folder), std::error_code()) << "a second time nothing is in the way";
}

TEST(UserFolders, WhereAFileIsInTheWayTheReasonIsTold) {
    const ScopedFolder place;
    std::ofstream(place.path() / "data") << "a file";
    EXPECT_EQ(makeUserFolder(place.path() / "data" / "slantwise"), std::errc::not_a_directory);
    EXPECT_EQ(makeUserFolder(place.path() / "data"), std::errc::not_a_directory);
    EXPECT_TRUE(makeUserFolder({})) << "no home";
}

} // namespace
} // namespace QVM_NAMESPACE
