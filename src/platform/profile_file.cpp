#include "platform/profile_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#ifdef _WIN32
#include "platform/host_path.h"
#include "platform/windows_error.h"
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace wk::platform {

FileError ErrnoError(const std::string& path, int errorNumber) {
    return FileError{path, std::strerror(errorNumber)};
}

std::string DescribeUnusableFile(const FileStamp& stamp) {
    switch (stamp.kind) {
        case FileKind::Directory:
            return "is a directory";
        case FileKind::Unusable:
#ifdef _WIN32
            return WindowsErrorText(static_cast<DWORD>(stamp.error));
#else
            return std::strerror(stamp.error);
#endif
        case FileKind::NotRegular:
#ifdef _WIN32
            if (stamp.typeBits == FILE_TYPE_PIPE) return "is a named pipe, not a regular file";
            if (stamp.typeBits == FILE_TYPE_CHAR) return "is a device, not a regular file";
#else
            if (stamp.typeBits == S_IFIFO) return "is a named pipe, not a regular file";
            if (stamp.typeBits == S_IFCHR || stamp.typeBits == S_IFBLK)
                return "is a device, not a regular file";
            if (stamp.typeBits == S_IFSOCK) return "is a socket, not a regular file";
#endif
            return "is not a regular file";
        case FileKind::Missing:
        case FileKind::Regular:
            break;
    }
    return {};
}

#ifndef _WIN32

namespace {

FileStamp StampOf(const struct stat& st) {
    FileStamp stamp;
    stamp.exists = true;
    stamp.isDirectory = S_ISDIR(st.st_mode);
    stamp.typeBits = st.st_mode & S_IFMT;
    stamp.kind = S_ISREG(st.st_mode)   ? FileKind::Regular
                 : S_ISDIR(st.st_mode) ? FileKind::Directory
                                       : FileKind::NotRegular;
    stamp.size = static_cast<std::uint64_t>(st.st_size);
    stamp.mtimeSeconds = st.st_mtim.tv_sec;
    stamp.mtimeNanoseconds = st.st_mtim.tv_nsec;
    stamp.inode = st.st_ino;
    stamp.device = st.st_dev;
    return stamp;
}

}  // namespace

FileStamp StatFile(const std::string& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) == 0) return StampOf(st);
    FileStamp stamp;
    // A missing file (or a link to one) is simply not there; anything else (a link loop, a
    // directory on the way that cannot be searched) is a file that exists but cannot be used,
    // and must never be taken for a missing one that a write may create.
    if (errno != ENOENT && errno != ENOTDIR) {
        stamp.kind = FileKind::Unusable;
        stamp.error = errno;
    }
    return stamp;
}

bool ReadWholeFile(const std::string& path, std::size_t maxBytes, std::string& bytes,
                   FileStamp& stamp, FileError& error) {
    // Non-blocking, so that opening a named pipe returns at once instead of waiting for a
    // writer; the file is then refused by its type before anything is read.
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (fd < 0) {
        error = ErrnoError(path, errno);
        stamp = StatFile(path);
        return false;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0) {
        error = ErrnoError(path, errno);
        ::close(fd);
        return false;
    }
    stamp = StampOf(st);
    if (stamp.kind != FileKind::Regular) {
        error = FileError{path, DescribeUnusableFile(stamp)};
        ::close(fd);
        return false;
    }
    if (stamp.size > maxBytes) {
        error = ErrnoError(path, EFBIG);
        ::close(fd);
        return false;
    }
    bytes.clear();
    bytes.resize(static_cast<std::size_t>(st.st_size));
    std::size_t done = 0;
    for (;;) {
        if (done == bytes.size()) {
            // A file that grew while it was read: read on, up to the limit.
            if (bytes.size() > maxBytes) {
                error = ErrnoError(path, EFBIG);
                ::close(fd);
                return false;
            }
            bytes.resize(bytes.size() + 4096);
        }
        const ssize_t n = ::read(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            error = ErrnoError(path, errno);
            ::close(fd);
            return false;
        }
        if (n == 0) break;
        done += static_cast<std::size_t>(n);
    }
    bytes.resize(done);
    ::close(fd);
    if (bytes.size() > maxBytes) {
        error = ErrnoError(path, EFBIG);
        return false;
    }
    return true;
}

#else  // _WIN32

namespace {

FileStamp StampOf(const WIN32_FILE_ATTRIBUTE_DATA& data) {
    FileStamp stamp;
    stamp.exists = true;
    stamp.isDirectory = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    stamp.kind = stamp.isDirectory ? FileKind::Directory : FileKind::Regular;
    stamp.size = (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    const std::uint64_t ticks =
        (static_cast<std::uint64_t>(data.ftLastWriteTime.dwHighDateTime) << 32) |
        data.ftLastWriteTime.dwLowDateTime;  // 100 ns units
    stamp.mtimeSeconds = static_cast<std::int64_t>(ticks / 10000000);
    stamp.mtimeNanoseconds = static_cast<std::int64_t>(ticks % 10000000) * 100;
    return stamp;
}

}  // namespace

FileStamp StatFile(const std::string& path) {
    const std::filesystem::path hostPath = PathFromAnsi(path);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (::GetFileAttributesExW(hostPath.c_str(), GetFileExInfoStandard, &data))
        return StampOf(data);
    FileStamp stamp;
    const DWORD code = ::GetLastError();
    if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) return stamp;
    // A device name ("CON", "NUL", "COM1", in any folder) or a named pipe has no attributes to
    // give; opened without any access (which never waits on a pipe), it tells what it is.
    HANDLE handle =
        ::CreateFileW(hostPath.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
        const DWORD type = ::GetFileType(handle);
        ::CloseHandle(handle);
        if (type != FILE_TYPE_DISK) {
            stamp.exists = true;
            stamp.kind = FileKind::NotRegular;
            stamp.typeBits = type;
            return stamp;
        }
    } else if (code == ERROR_BAD_DEV_TYPE) {
        // A device that cannot be opened here (the console of a program without one).
        stamp.exists = true;
        stamp.kind = FileKind::NotRegular;
        stamp.typeBits = FILE_TYPE_CHAR;
        return stamp;
    }
    stamp.kind = FileKind::Unusable;
    stamp.error = static_cast<int>(code);
    return stamp;
}

bool ReadWholeFile(const std::string& path, std::size_t maxBytes, std::string& bytes,
                   FileStamp& stamp, FileError& error) {
    stamp = StatFile(path);
    if (stamp.kind == FileKind::Directory || stamp.kind == FileKind::Unusable ||
        stamp.kind == FileKind::NotRegular) {
        error = FileError{path, DescribeUnusableFile(stamp)};
        return false;
    }
    HANDLE file = ::CreateFileW(PathFromAnsi(path).c_str(), GENERIC_READ,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        error = FileError{path, WindowsErrorText(::GetLastError())};
        return false;
    }
    // Devices and pipes ("CON", "\\.\pipe\x") are no settings files.
    if (const DWORD type = ::GetFileType(file); type != FILE_TYPE_DISK) {
        stamp.kind = FileKind::NotRegular;
        stamp.typeBits = type;
        error = FileError{path, DescribeUnusableFile(stamp)};
        ::CloseHandle(file);
        return false;
    }
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(file, &size)) {
        error = FileError{path, WindowsErrorText(::GetLastError())};
        ::CloseHandle(file);
        return false;
    }
    if (static_cast<std::uint64_t>(size.QuadPart) > maxBytes) {
        error = ErrnoError(path, EFBIG);
        ::CloseHandle(file);
        return false;
    }
    bytes.assign(static_cast<std::size_t>(size.QuadPart), '\0');
    std::size_t done = 0;
    while (done < bytes.size()) {
        DWORD n = 0;
        const DWORD want = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, 1u << 30));
        if (!::ReadFile(file, bytes.data() + done, want, &n, nullptr)) {
            error = FileError{path, WindowsErrorText(::GetLastError())};
            ::CloseHandle(file);
            return false;
        }
        if (n == 0) break;
        done += n;
    }
    bytes.resize(done);
    ::CloseHandle(file);
    return true;
}

#endif

}  // namespace wk::platform
