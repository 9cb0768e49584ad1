// The disk, by the calls of a POSIX system.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <system_error>

#include "platform/files/file_system.h"
#include "platform/files/posix/disk_saves.h"
#include "platform/files/posix/posix.h"

namespace wynconfig {

namespace {

/// What a failed call of the system says, for a message.
std::string causeOf(int error) {
    return std::generic_category().message(error);
}

/// True for the causes by which nothing can be there: neither a file of that name, nor a folder.
bool meansNotThere(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
        case ELOOP:         // a link that leads to itself
        case ENAMETOOLONG:  // and names that this folder's file system can't have
        case EINVAL:
        case EILSEQ:
            return true;
        default:
            return false;
    }
}

/// Reads an open file to its end, whatever length it claims, up to one byte beyond `most`.
std::string readToEnd(int file, std::size_t claimed, std::size_t most) {
    std::string content(std::min(claimed, most) + 1, '\0');
    std::size_t have = 0;
    for (;;) {
        const auto got =
            checked([&] { return ::read(file, content.data() + have, content.size() - have); });
        have += static_cast<std::size_t>(got);
        if (got == 0 || have > most) break;
        if (have == content.size()) content.resize(std::min(2 * have, most + 1));
    }
    content.resize(have);
    return content;
}

class RealFileSystem : public FileSystem {
  protected:
    bool entriesOf(const std::string& folder, std::vector<Entry>& entries) override {
        const std::unique_ptr<DIR, int (*)(DIR*)> listing{::opendir(folderName(folder)),
                                                          ::closedir};
        if (!listing) return refuseUnlessMissing("folder", folderName(folder), "read");
        for (;;) {
            errno = 0;
            const dirent* entry = ::readdir(listing.get());
            if (!entry)
                return errno == 0 || refuseUnlessMissing("folder", folderName(folder), "read");
            const std::string_view name = entry->d_name;
            if (name == "." || name == "..") continue;
            entries.push_back({std::string{name}, isPlainEntry(folder, *entry)});
        }
    }

    bool stampOf(const std::string& folder, Stamp& stamp) override {
        struct stat info {};
        if (::stat(folderName(folder), &info) != 0 || !S_ISDIR(info.st_mode)) return false;
        stamp = changeOf(info);
        return true;
    }

    std::optional<Version> versionOf(const std::string& path) override {
        struct stat info {};
        if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
        const Stamp change = changeOf(info);
        return Version{{static_cast<std::int64_t>(info.st_dev),
                        static_cast<std::int64_t>(info.st_ino), info.st_size, change.value},
                       change.settled};
    }

    bool isPlainFile(const std::string& path) override {
        struct stat info {};
        if (::stat(path.c_str(), &info) != 0) return refuseUnlessMissing("file", path, "looked at");
        return S_ISREG(info.st_mode);
    }

    bool isFolder(const std::string& path) override {
        struct stat info {};
        if (::stat(folderName(path), &info) != 0)
            return refuseUnlessMissing("folder", folderName(path), "looked at");
        return S_ISDIR(info.st_mode);
    }

    bool isOther(const std::string& path) override {
        struct stat info {};
        if (::stat(path.c_str(), &info) != 0) return refuseUnlessMissing("file", path, "looked at");
        return !S_ISREG(info.st_mode);
    }

    bool isLink(const std::string& path) override {
        struct stat info {};
        if (::lstat(path.c_str(), &info) != 0)
            return refuseUnlessMissing("file", path, "looked at");
        return S_ISLNK(info.st_mode);
    }

    std::string behindLinks(const std::string& path) override {
        if (!isLink(path)) return path;
        const std::unique_ptr<char, void (*)(void*)> place{::realpath(path.c_str(), nullptr),
                                                           std::free};
        if (place) return place.get();
        if (errno == ENOENT) return path;
        throw refusal("file", path, "written", causeOf(errno));
    }

    std::errc whyNoFolder(const std::string& path) override {
        struct stat info {};
        const bool isThere = ::stat(folderName(path), &info) == 0;
        return static_cast<std::errc>(isThere ? ENOTDIR : errno);
    }

    void createFolder(const std::string& path) override {
        const std::string parent = path.substr(0, path.rfind('/') + 1);
        try {
            checked([&] { return ::mkdir(path.c_str(), 0777); });
            // Without this a file saved into the new folder could get lost with it.
            OpenFolder{parent}.sync();
        } catch (const SystemFailure& failure) {
            throw refusal("folder", path, "made", causeOf(failure.error));
        }
    }

    std::string readFile(const std::string& path) override {
        try {
            const Descriptor file = openPlainFile(AT_FDCWD, path.c_str(), O_RDONLY, 0);
            if (file.number() < 0) throw SystemFailure{errno};
            struct stat info {};
            checked([&] { return ::fstat(file.number(), &info); });
            if (!S_ISREG(info.st_mode)) throw SystemFailure{EINVAL};
            std::string content =
                readToEnd(file.number(), static_cast<std::size_t>(info.st_size), kMaxItemSize);
            if (content.size() > kMaxItemSize)
                throw refusal("file", path, "read", "it is too large");
            return content;
        } catch (const SystemFailure& failure) {
            if (failure.error == ENOENT) throw notFound(path);
            if (failure.error == EINVAL) throw refusal("file", path, "read", "it is no plain file");
            throw refusal("file", path, "read", causeOf(failure.error));
        }
    }

    void replaceFile(const std::string& path, std::string_view content) override {
        told([&] { m_saves.save(path, content); });
    }

    void removeFile(const std::string& path) override {
        if (::unlink(path.c_str()) == 0) return;
        if (errno == ENOENT) throw notFound(path);
        throw refusal("file", path, "deleted", causeOf(errno));
    }

    void stageFile(const std::string& path, std::string_view content) override {
        told([&] { m_saves.stage(path, content); });
    }
    std::function<void()> unstaging(const std::string& path) override {
        return [this, path] { m_saves.unstage(path); };
    }
    void commitStaged(const MayReplace& mayReplace) override {
        told([&] { m_saves.commit(mayReplace); });
    }
    void discardStaged() noexcept override { m_saves.discard(); }

  private:
    /// Behind a question that failed: false when nothing is there, else raises what `errno` says.
    static bool refuseUnlessMissing(const char* kind, const std::string& path, const char* verb) {
        const int error = errno;
        if (meansNotThere(error)) return false;
        throw refusal(kind, path, verb, causeOf(error));
    }

    /// A link that leads where nobody may look is a plain file to nobody, and hides no other name.
    bool isPlainEntry(const std::string& folder, const dirent& entry) {
        if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) return entry.d_type == DT_REG;
        struct stat info {};
        const std::string path = join(folder, entry.d_name);
        if (::stat(path.c_str(), &info) == 0) return S_ISREG(info.st_mode);
        return errno != EACCES && refuseUnlessMissing("file", path, "looked at");
    }

    /// Saves, and says in words why that fails.
    template <typename Save>
    static void told(Save save) {
        try {
            save();
        } catch (const SaveFailure& failure) {
            throwTold(failure);
        }
    }
    [[noreturn]] static void throwTold(const SaveFailure& failure) {
        const SaveFailureWords words = wordsOf(failure);
        const Error told = refusal(words.kind, failure.path, words.verb, causeOf(failure.error));
        if (failure.what == SaveFailure::What::GroupLost) throw GroupLost(told);
        throw told;
    }

    /// The time of the last change of any kind, since anybody may set the other one back. It moves
    /// in steps of some milliseconds, or of seconds where no part of one is kept.
    static Stamp changeOf(const struct stat& info) {
        timespec now{};
        ::clock_gettime(CLOCK_REALTIME, &now);
        const std::int64_t step = info.st_ctim.tv_nsec == 0 ? 2'020'000'000 : 20'000'000;
        const std::int64_t changed = nanoseconds(info.st_ctim);
        return {changed, nanoseconds(now) - changed >= step};
    }

    static std::int64_t nanoseconds(const timespec& time) {
        return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
    }

    DiskSaves m_saves;
};

}  // namespace

std::unique_ptr<FileSystem> makeRealFileSystem() {
    return std::make_unique<RealFileSystem>();
}

}  // namespace wynconfig
