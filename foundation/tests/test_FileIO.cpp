#include "TestTools.h"

#include <KOR/FileIO.h>

#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t MIB = 1 << 20;

std::string content(const std::string & path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void put(const std::string & path, const std::string & text) {
    std::ofstream(path, std::ios::binary) << text;
}

mode_t modeOf(const std::string & path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

/// Names in a directory, hidden ones too.
std::vector<std::string> names(const fs::path & directory) {
    std::vector<std::string> result;
    for (const auto & entry : fs::directory_iterator(directory))
        result.push_back(entry.path().filename().string());
    std::sort(result.begin(), result.end());
    return result;
}

/// The system's own words, in the user's language.
std::string reason(int error) {
    return std::generic_category().message(error);
}

/// What the failure says about a save that must not succeed.
std::string refusal(const std::string & path) {
    const auto ex = caught([&] { KOR::writeFile(path, "new"); });
    EXPECT_EQ(ex.chain().back().where, "[KOR::writeFile]");
    return ex.message();
}

/// Root may write everywhere; for these tests it becomes an ordinary user for a while.
struct OrdinaryUser {
    OrdinaryUser() {
        if (geteuid() == 0) {
            EXPECT_EQ(seteuid(65534), 0);
        }
    }
    ~OrdinaryUser() {
        if (getuid() == 0) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }
};

} // namespace

TEST(WriteFile, ReplacesContentAndKeepsLinkAndMode) {
    const TemporaryDirectory directory;
    const std::string file = directory.file("Wänd e.h6p");
    const mode_t mask = umask(027);
    KOR::writeFile(file, "one");
    umask(mask);
    EXPECT_EQ(content(file), "one");
    EXPECT_EQ(modeOf(file), 0640u);

    for (const mode_t mode : {0600u, 0664u, 0755u}) {
        fs::permissions(file, static_cast<fs::perms>(mode));
        KOR::writeFile(file, std::string("two\0\n", 5));
        EXPECT_EQ(content(file), std::string("two\0\n", 5));
        EXPECT_EQ(modeOf(file), mode);
    }

    fs::create_directory(directory.file("links"));
    const std::string near = directory.file("links/near");
    const std::string far = directory.file("far");
    fs::create_symlink("../W\xC3\xA4nd e.h6p", near);
    fs::create_symlink(near, far);
    KOR::writeFile(far, "three");
    EXPECT_TRUE(fs::is_symlink(near));
    EXPECT_TRUE(fs::is_symlink(far));
    EXPECT_EQ(content(file), "three");

    const fs::path before = fs::current_path();
    fs::current_path(directory.path);
    KOR::writeFile("relative", "");
    fs::current_path(before);
    EXPECT_EQ(KOR::readFile(directory.file("relative"), 0), "");
    EXPECT_EQ(names(directory.path), (std::vector<std::string>{"W\xC3\xA4nd e.h6p", "far", "links", "relative"}));
}

TEST(WriteFile, RefusesWhatIsNoRegularFile) {
    const TemporaryDirectory directory;
    const std::string fifo = directory.file("fifo");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    const std::string dangling = directory.file("dangling");
    fs::create_symlink("nowhere", dangling);
    for (const std::string & path : {fifo, directory.path.string(), std::string("/dev/null")})
        EXPECT_EQ(refusal(path), "'" + path + "' is not a regular file.");
    EXPECT_EQ(refusal(dangling), "'" + dangling + "' is a link to a file that does not exist.");
    for (const std::string & path :
         {std::string(), directory.file("no/file"), fifo + "/file", directory.file(std::string(300, 'x'))})
        EXPECT_FALSE(refusal(path).empty());
    EXPECT_EQ(names(directory.path), (std::vector<std::string>{"dangling", "fifo"}));
}

TEST(WriteFile, TellsWhyItMayNotWrite) {
    const TemporaryDirectory directory;
    fs::permissions(directory.path, static_cast<fs::perms>(0777));
    const std::string locked = directory.file("locked");
    fs::create_directory(locked);
    put(locked + "/file", "old");
    fs::permissions(locked + "/file", static_cast<fs::perms>(0666));
    const std::string readOnly = directory.file("readOnly");
    put(readOnly, "old");
    fs::permissions(readOnly, static_cast<fs::perms>(0444));
    fs::permissions(locked, static_cast<fs::perms>(0555));
    {
        const OrdinaryUser user;
        EXPECT_THAT(refusal(locked + "/file"), testing::EndsWith(": " + reason(EACCES)));
        EXPECT_THAT(refusal(locked + "/new"), testing::EndsWith(": " + reason(EACCES)));
        EXPECT_EQ(refusal(readOnly), "Cannot write file '" + readOnly + "': " + reason(EACCES));
    }
    fs::permissions(locked, static_cast<fs::perms>(0755));
    EXPECT_EQ(content(locked + "/file"), "old");
    EXPECT_EQ(content(readOnly), "old");
    EXPECT_EQ(names(locked), std::vector<std::string>{"file"});
}

TEST(WriteFile, LimitOfTheFileSizeLeavesTheOldFile) {
    const TemporaryDirectory directory;
    const std::string file = directory.file("file");
    put(file, "old");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    for (const rlim_t limit : {rlim_t{0}, rlim_t{1}, rlim_t{4096}, rlim_t{99999}}) {
        const rlimit small{limit, before.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
        const auto ex = caught([&] { KOR::writeFile(file, std::string(100000, 'x')); });
        setrlimit(RLIMIT_FSIZE, &before);
        EXPECT_THAT(ex.message(), testing::EndsWith(": " + reason(EFBIG)));
        EXPECT_EQ(content(file), "old");
        EXPECT_EQ(names(directory.path), std::vector<std::string>{"file"});
    }
    std::signal(SIGXFSZ, handler);
}

TEST(WriteFile, FullDiskNeverTearsTheFile) {
    const TemporaryDirectory directory;
    const std::string disk = directory.file("disk");
    fs::create_directory(disk);
    if (mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=256k") != 0)
        GTEST_SKIP() << "mounting a small disk takes root";
    const std::string file = disk + "/file";
    const std::string oldText(20000, 'o');
    const std::string newText(50000, 'n');
    std::size_t saved = 0;
    std::size_t refused = 0;
    for (std::size_t level = 0; level < 60; ++level) {
        put(file, oldText);
        ASSERT_EQ(content(file), oldText);
        put(disk + "/filler", std::string(level * 4096, 'f'));
        try {
            KOR::writeFile(file, newText);
            ++saved;
            EXPECT_EQ(content(file), newText) << level;
        } catch (const KOR::Exception & ex) {
            ++refused;
            EXPECT_THAT(ex.message(), testing::EndsWith(": " + reason(ENOSPC)));
            EXPECT_EQ(content(file), oldText) << level;
        }
        EXPECT_EQ(names(disk), (std::vector<std::string>{"file", "filler"}));
        fs::remove(disk + "/filler");
        fs::remove(file);
    }
    umount(disk.c_str());
    EXPECT_GT(saved, 0u);
    EXPECT_GT(refused, 0u);
}

TEST(WriteFile, KilledSavesLeaveOldOrNewAndLeftoversAreCleaned) {
    const TemporaryDirectory directory;
    const std::string file = directory.file("file");
    const std::string texts[] = {std::string(300000, 'a'), std::string(200000, 'b')};
    KOR::writeFile(file, texts[0]);
    std::size_t leftovers = 0;
    for (int round = 0; round < 40; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (int i = 1;; ++i)
                KOR::writeFile(file, texts[i % 2]);
        }
        usleep(static_cast<useconds_t>(500 + 173 * round));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string found = content(file);
        ASSERT_TRUE(found == texts[0] || found == texts[1]) << found.size();
        leftovers += names(directory.path).size() - 1;
        KOR::removeLeftovers(file);
        ASSERT_EQ(names(directory.path), std::vector<std::string>{"file"});
    }
    EXPECT_GT(leftovers, 0u) << "no save was hit";
}

TEST(RemoveLeftovers, LeavesAllOthersAlone) {
    const TemporaryDirectory directory;
    const std::vector<std::string> kept = {".b.hyg-a00000",    ".file.hyg-00000",  ".file.hyg-0000000",
                                           ".file.hyg-dir000", ".file.hyg-locked", "file",
                                           "file.hyg-000000"};
    for (const std::string & name : kept)
        if (name != ".file.hyg-dir000")
            put(directory.file(name), "x");
    fs::create_directory(directory.file(".file.hyg-dir000"));
    put(directory.file(".file.hyg-012abc"), "x");
    fs::create_symlink("file", directory.file("link"));
    // Another process that is saving right now holds a lock on its temporary file.
    const int saving = open(directory.file(".file.hyg-locked").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(saving, LOCK_EX), 0);
    KOR::removeLeftovers(directory.file("link"));
    fs::remove(directory.file("link"));
    EXPECT_EQ(names(directory.path), kept);
    close(saving);
    KOR::removeLeftovers(directory.file("file"));
    EXPECT_FALSE(fs::exists(directory.file(".file.hyg-locked")));
    KOR::removeLeftovers(directory.file("no/such/file"));
    KOR::removeLeftovers("");
}

TEST(ReadFile, ReadsRegularFilesWithinTheirBound) {
    const TemporaryDirectory directory;
    const std::string file = directory.file("file");
    put(file, std::string("a\0\r\nb", 5));
    EXPECT_EQ(KOR::readFile(file, 5), std::string("a\0\r\nb", 5));
    EXPECT_EQ(KOR::readFileHead(file, 3), std::string("a\0\r", 3));
    EXPECT_EQ(KOR::readFileHead(file, 100).size(), 5u);

    const std::string large = directory.file("large");
    put(large, "");
    fs::resize_file(large, 40'000'000'000); // a sparse file: checked by its size, never read
    const std::string fifo = directory.file("fifo");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    struct Row {
        std::string path, message;
    };
    const Row rows[] = {
        {large,                   "File '" + large + "' is larger than 64 MiB."                         },
        {fifo,                    "'" + fifo + "' is not a regular file."                               },
        {directory.path.string(), "'" + directory.path.string() + "' is not a regular file."            },
        {directory.file("none"),  "Cannot open file '" + directory.file("none") + "': " + reason(ENOENT)},
        {"",                      "Cannot open file '': " + reason(ENOENT)                              },
    };
    for (const Row & row : rows) {
        const auto ex = caught([&] { KOR::readFile(row.path, 64 * MIB); });
        EXPECT_EQ(ex.message(), row.message);
        EXPECT_EQ(ex.chain().back().where, "[KOR::readFile]");
    }
    EXPECT_EQ(KOR::readFileHead(large, 4), std::string(4, '\0'));
}
