// What lies in a store folder and is no plain file: links, through which is read and never written,
// and pipes, sockets and devices, which are never even opened.
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <set>
#include <string>
#include <thread>

#include "support/file_system_kit.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

class Links : public OnTheDisk {
  protected:
    Links() {
        fs::create_directory(root + "elsewhere");
        put("elsewhere/real", "old");
        fs::create_symlink("elsewhere/real", root + "Link.vla");
    }
};

TEST_F(Links, areReadWhereTheyLeadToAPlainFile) {
    fs::create_symlink("nowhere", root + "Dangling.vla");
    fs::create_symlink("elsewhere", root + "Folder.vla");
    fs::create_symlink("Loop.vla", root + "Loop.vla");
    EXPECT_EQ(files->listItems(root), Names{"Link.vla"});
    EXPECT_EQ(files->find(at("LINK.VLA")), "Link.vla");
    EXPECT_EQ(files->read(at("LINK.VLA")), "old");
    for (const char* name : {"Dangling.vla", "DANGLING.VLA", "FOLDER.VLA", "Loop.vla"})
        EXPECT_EQ(files->find(at(name)), "") << name;
    EXPECT_TRUE(files->folderExists(root + "FOLDER.VLA"));
}

TEST_F(Links, giveWayToTheFileThatIsSaved) {
    fs::create_symlink("nowhere", root + "Dangling.vla");
    fs::create_symlink("Loop.vla", root + "Loop.vla");
    for (const char* name : {"LINK.VLA", "Dangling.vla", "Loop.vla"}) files->save(at(name), "new");
    for (const char* name : {"Link.vla", "Dangling.vla", "Loop.vla"}) {
        EXPECT_FALSE(fs::is_symlink(root + name)) << name;
        EXPECT_EQ(contentOf(name), "new") << name;
    }
    EXPECT_EQ(contentOf("elsewhere/real"), "old");
    EXPECT_EQ(names(),
              (std::set<std::string>{"elsewhere", "Dangling.vla", "Link.vla", "Loop.vla"}));
    EXPECT_EQ(std::distance(fs::directory_iterator(root + "elsewhere"), {}), 1);
}

TEST_F(Links, toFoldersAreRefusedWhereAFileIsToBeSaved) {
    fs::create_symlink("elsewhere", root + "Folder.vla");
    EXPECT_EQ(raisedBy([&] { files->save(at("Folder.vla"), "x"); }).number(), errc::FileAccess);
    EXPECT_TRUE(fs::is_symlink(root + "Folder.vla"));
}

TEST_F(Links, giveWayToAFileWithTheModeOfANewOne) {
    fs::permissions(root + "elsewhere/real", fs::perms{0777});
    const mode_t mask = umask(0027);
    files->save(at("Link.vla"), "new");
    umask(mask);
    EXPECT_EQ(modeOf("Link.vla"), 0640U);
    EXPECT_EQ(modeOf("elsewhere/real"), 0777U);
}

TEST_F(Links, toWriteProtectedFilesGiveWayAllTheSame) {
    fs::permissions(root + "elsewhere/real", fs::perms{0444});
    const bool privileged = geteuid() == 0;
    constexpr uid_t kPlainUser = 65534;
    if (privileged) {
        ASSERT_EQ(chown(root.c_str(), kPlainUser, static_cast<gid_t>(-1)), 0);
        ASSERT_EQ(seteuid(kPlainUser), 0);
    }
    EXPECT_NO_THROW(files->save(at("Link.vla"), "new"));
    if (privileged) {
        ASSERT_EQ(seteuid(0), 0);
    }
    EXPECT_FALSE(fs::is_symlink(root + "Link.vla"));
    EXPECT_EQ(contentOf("Link.vla"), "new");
    EXPECT_EQ(contentOf("elsewhere/real"), "old");
}

TEST_F(Links, goThemselvesWhenTheyAreRemoved) {
    files->remove(at("LINK.VLA"));
    EXPECT_EQ(contentOf("elsewhere/real"), "old");
    EXPECT_EQ(names(), std::set<std::string>{"elsewhere"});
}

TEST_F(Links, mayBeTheFoldersInWhichFilesAreSaved) {
    fs::create_directory_symlink("elsewhere", root + "Sub");
    files->save({root + "SUB\\", "A.vla"}, "new");
    EXPECT_EQ(contentOf("elsewhere/A.vla"), "new");
    EXPECT_TRUE(fs::is_symlink(root + "Sub"));
}

TEST_F(Links, areToldFromFoldersInAnyCase) {
    fs::create_directory_symlink("elsewhere", root + "Sub");
    fs::create_directory_symlink("nowhere", root + "Dangling");
    const Error error = raisedBy([&] { files->refuseLink(root + "SUB\\"); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_EQ(error.description(), "The folder " + root + "Sub can't be used: it is a link.");
    EXPECT_EQ(raisedBy([&] { files->refuseLink(root + "Dangling"); }).number(), errc::FileAccess);
    EXPECT_NO_THROW(files->refuseLink(root + "elsewhere"));
    EXPECT_NO_THROW(files->refuseLink(root + "none"));
}

// ---------------------------------------------------------------------------------------------
// Pipes, sockets and devices.

/// Counts how often what lies in a folder is opened.
class OpenWatch {
  public:
    explicit OpenWatch(const std::string& folder) : m_queue(inotify_init1(IN_NONBLOCK)) {
        EXPECT_GE(inotify_add_watch(m_queue, folder.c_str(), IN_OPEN), 0);
    }
    ~OpenWatch() { close(m_queue); }
    OpenWatch(const OpenWatch&) = delete;
    OpenWatch& operator=(const OpenWatch&) = delete;

    /// The names of what was opened, but for the folder itself.
    std::set<std::string> opened() {
        std::set<std::string> names;
        alignas(inotify_event) char buffer[65536];
        for (;;) {
            const ssize_t size = ::read(m_queue, buffer, sizeof buffer);
            if (size <= 0) return names;
            for (ssize_t at = 0; at < size;) {
                const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
                if (event->len > 0) names.insert(event->name);
                at += static_cast<ssize_t>(sizeof *event + event->len);
            }
        }
    }

  private:
    int m_queue;
};

class NoPlainFiles : public OnTheDisk {
  protected:
    NoPlainFiles() {
        EXPECT_EQ(mkfifo((root + "Pipe.vla").c_str(), 0666), 0);
        // Only a privileged user may make a device.
        if (mknod((root + "Device.vla").c_str(), S_IFCHR | 0666, makedev(1, 3)) == 0)
            odd.push_back("Device.vla");
        makeSocket();
    }
    ~NoPlainFiles() override { close(m_socket); }

    Names odd{"Pipe.vla", "Socket.vla"};

  private:
    void makeSocket() {
        m_socket = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        (root + "Socket.vla").copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    }

    int m_socket = -1;
};

TEST_F(NoPlainFiles, areNoItems) {
    EXPECT_TRUE(files->listItems(root).empty());
    for (const std::string& name : odd) {
        EXPECT_EQ(files->find(at(name)), "") << name;
        EXPECT_FALSE(files->existsExactly(root + name)) << name;
        EXPECT_EQ(raisedBy([&] { files->read(at(name)); }).number(), errc::FileNotFound) << name;
    }
}

TEST_F(NoPlainFiles, areNeverOpened) {
    OpenWatch watch{root};
    put("A.vla", "x");
    EXPECT_EQ(files->read(at("A.vla")), "x");
    EXPECT_EQ(watch.opened(), std::set<std::string>{"A.vla"}) << "an opening is seen";
    Stranger direct{*files};
    for (const std::string& name : odd) {
        // Put there behind the look-up, they are not opened either.
        const Error error = raisedBy([&] { direct.readExactly(root + name); });
        EXPECT_EQ(error.description(),
                  "The file " + root + name + " can't be read: it is no plain file.");
        EXPECT_EQ(raisedBy([&] { files->save(at(name), "x"); }).number(), errc::FileAccess);
        SaveBatch batch{*files};
        EXPECT_EQ(raisedBy([&] { files->save(at(name), "x"); }).number(), errc::FileAccess);
    }
    const std::set<std::string> opened = watch.opened();
    for (const std::string& name : odd) EXPECT_FALSE(opened.contains(name)) << name;
}

TEST_F(NoPlainFiles, areNotOpenedThroughLinksEither) {
    for (const std::string& name : odd) fs::create_symlink(name, root + "To " + name);
    OpenWatch watch{root};
    Stranger direct{*files};
    for (const std::string& name : odd) {
        const std::string link = "To " + name;
        EXPECT_EQ(raisedBy([&] { files->read(at(link)); }).number(), errc::FileNotFound);
        EXPECT_EQ(raisedBy([&] { direct.readExactly(root + link); }).number(), errc::FileAccess);
        files->save(at(link), "new");
        EXPECT_EQ(contentOf(link), "new") << "it was the link that gave way";
    }
    const std::set<std::string> opened = watch.opened();
    for (const std::string& name : odd) EXPECT_FALSE(opened.contains(name)) << name;
}

TEST_F(NoPlainFiles, areNotOpenedUnderTheNameOfATemporary) {
    const Names temporaries{".wyn-123-0123abcd-1.tmp", ".wyn-123-0123abcd-2.tmp"};
    fs::rename(root + "Pipe.vla", root + temporaries[0]);
    fs::create_symlink("Socket.vla", root + temporaries[1]);
    OpenWatch watch{root};
    files->save(at("A.vla"), "x");
    const std::set<std::string> opened = watch.opened();
    for (const std::string& name : temporaries) {
        EXPECT_FALSE(opened.contains(name)) << name;
        EXPECT_TRUE(names().contains(name)) << name;
    }
}

}  // namespace
}  // namespace wynconfig
