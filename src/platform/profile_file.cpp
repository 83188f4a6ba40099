#include "platform/profile_file.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/host_path.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace wk::platform {
namespace fs = std::filesystem;

namespace {

std::string Describe(const std::string& path, int errorNumber) {
    return path + ": " + std::strerror(errorNumber);
}

// The file a write must replace: a symbolic link is followed to its target, so that the
// link stays a link.
fs::path FollowLinks(const std::string& path) {
    fs::path current = PathFromAnsi(path);
    std::error_code ec;
    for (int hops = 0; hops < 40 && fs::is_symlink(fs::symlink_status(current, ec)); ++hops) {
        fs::path target = fs::read_symlink(current, ec);
        if (ec) break;
        current = target.is_relative() ? current.parent_path() / target : target;
    }
    return current;
}

}  // namespace

#ifndef _WIN32

namespace {

FileStamp StampOf(const struct stat& st) {
    FileStamp stamp;
    stamp.exists = true;
    stamp.isDirectory = S_ISDIR(st.st_mode);
    stamp.size = static_cast<std::uint64_t>(st.st_size);
    stamp.mtimeSeconds = st.st_mtim.tv_sec;
    stamp.mtimeNanoseconds = st.st_mtim.tv_nsec;
    stamp.inode = st.st_ino;
    stamp.device = st.st_dev;
    return stamp;
}

bool WriteAll(int fd, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        done += static_cast<std::size_t>(n);
    }
    return true;
}

}  // namespace

FileStamp StatFile(const std::string& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) return FileStamp{};
    return StampOf(st);
}

bool ReadWholeFile(const std::string& path, std::string& bytes, FileStamp& stamp,
                   std::string& error) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error = Describe(path, errno);
        stamp = StatFile(path);
        return false;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0) {
        error = Describe(path, errno);
        ::close(fd);
        return false;
    }
    stamp = StampOf(st);
    if (stamp.isDirectory) {
        error = Describe(path, EISDIR);
        ::close(fd);
        return false;
    }
    bytes.clear();
    bytes.resize(static_cast<std::size_t>(st.st_size));
    std::size_t done = 0;
    for (;;) {
        if (done == bytes.size()) bytes.resize(bytes.size() + 4096);  // a file that grew
        const ssize_t n = ::read(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            error = Describe(path, errno);
            ::close(fd);
            return false;
        }
        if (n == 0) break;
        done += static_cast<std::size_t>(n);
    }
    bytes.resize(done);
    ::close(fd);
    return true;
}

bool ReplaceFileAtomically(const std::string& path, const std::string& bytes, std::string& error) {
    const std::string target = FollowLinks(path).string();
    const fs::path targetPath(target);
    const std::string directory =
        targetPath.has_parent_path() ? targetPath.parent_path().string() : std::string(".");

    struct stat original {};
    const bool existed = ::stat(target.c_str(), &original) == 0;
    if (existed && S_ISDIR(original.st_mode)) {
        error = Describe(path, EISDIR);
        return false;
    }
    // A new file gets the permissions any program here would give it.
    mode_t mode = 0;
    if (existed) {
        mode = original.st_mode & 07777;
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }

    std::string temp = directory + "/." + targetPath.filename().string() + ".XXXXXX";
    const int fd = ::mkstemp(temp.data());
    if (fd < 0) {
        error = Describe(path, errno);
        return false;
    }
    const auto fail = [&](int errorNumber) {
        ::close(fd);
        ::unlink(temp.c_str());
        error = Describe(path, errorNumber);
        return false;
    };
    if (!WriteAll(fd, bytes)) return fail(errno);
    if (::fchmod(fd, mode) != 0) return fail(errno);
    if (existed) {
        // Keeps the owner when an administrator edits an operator's file; an ordinary user
        // cannot give a file away, and then the file is simply the user's own.
        [[maybe_unused]] const int ignored = ::fchown(fd, original.st_uid, original.st_gid);
    }
    if (::fsync(fd) != 0) return fail(errno);
    if (::close(fd) != 0) {
        const int closeError = errno;
        ::unlink(temp.c_str());
        error = Describe(path, closeError);
        return false;
    }
    if (::rename(temp.c_str(), target.c_str()) != 0) {
        const int renameError = errno;
        ::unlink(temp.c_str());
        error = Describe(path, renameError);
        return false;
    }
    error.clear();
    return true;
}

#else  // _WIN32

// Paths are ANSI-code-page bytes, handed to the system as UTF-16 (see host_path.h).
FileStamp StatFile(const std::string& path) {
    FileStamp stamp;
    std::error_code ec;
    const fs::path hostPath = PathFromAnsi(path);
    const fs::file_status status = fs::status(hostPath, ec);
    if (ec || !fs::exists(status)) return stamp;
    stamp.exists = true;
    stamp.isDirectory = fs::is_directory(status);
    if (!stamp.isDirectory) stamp.size = fs::file_size(hostPath, ec);
    const auto time = fs::last_write_time(hostPath, ec).time_since_epoch();
    const auto ns = std::chrono::duration_cast<std::chrono::nanoseconds>(time).count();
    stamp.mtimeSeconds = ns / 1000000000;
    stamp.mtimeNanoseconds = ns % 1000000000;
    return stamp;
}

bool ReadWholeFile(const std::string& path, std::string& bytes, FileStamp& stamp,
                   std::string& error) {
    stamp = StatFile(path);
    if (stamp.isDirectory) {
        error = Describe(path, EISDIR);
        return false;
    }
    std::ifstream in(PathFromAnsi(path), std::ios::binary);
    if (!in) {
        error = Describe(path, errno);
        return false;
    }
    bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    if (in.bad()) {
        error = Describe(path, EIO);
        return false;
    }
    return true;
}

bool ReplaceFileAtomically(const std::string& path, const std::string& bytes, std::string& error) {
    const fs::path target = FollowLinks(path);
    std::error_code ec;
    if (fs::is_directory(target, ec)) {
        error = Describe(path, EISDIR);
        return false;
    }
    const bool existed = fs::exists(target, ec);
    const fs::perms perms = existed ? fs::status(target, ec).permissions() : fs::perms::unknown;
    fs::path temp;
    for (int attempt = 0; attempt < 100; ++attempt) {
        temp = target;
        temp += ".tmp" + std::to_string(attempt);
        if (!fs::exists(temp, ec)) break;
    }
    {
        std::ofstream out(temp, std::ios::binary | std::ios::trunc);
        if (!out) {
            error = Describe(path, errno);
            return false;
        }
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        out.flush();
        if (!out) {
            out.close();
            fs::remove(temp, ec);
            error = Describe(path, EIO);
            return false;
        }
    }
    if (existed) fs::permissions(temp, perms, ec);
    fs::rename(temp, target, ec);
    if (ec) {
        std::error_code removeEc;
        fs::remove(temp, removeEc);
        error = path + ": " + ec.message();
        return false;
    }
    error.clear();
    return true;
}

#endif

}  // namespace wk::platform
