// platform file: Windows
#include "DirectFile.h"

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <malloc.h>
#include <memory>
#include <string>
#include <utility>

namespace vaws {
namespace {

constexpr std::uint64_t alignment = 4096;
constexpr std::size_t maxPart = 16u * 1024 * 1024;

int errnoOf(DWORD error)
{
    switch (error) {
    case ERROR_SUCCESS:
        return 0;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return ENOENT;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
        return EACCES;
    case ERROR_WRITE_PROTECT:
        return EROFS;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    case ERROR_NOT_READY:
    case ERROR_DEV_NOT_EXIST:
        return ENODEV;
    case ERROR_INVALID_PARAMETER:
        return EINVAL;
    default:
        return EIO;
    }
}

int lastError()
{
    return errnoOf(GetLastError());
}

HANDLE openHandle(const std::filesystem::path& path, DWORD access, DWORD disposition, DWORD flags)
{
    return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                       disposition, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT | flags, nullptr);
}

/// Closes the handle, which may be none.
int writeText(HANDLE handle, const std::string& text)
{
    if (handle == INVALID_HANDLE_VALUE)
        return lastError();
    DWORD done = 0;
    const bool isWritten = WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &done, nullptr);
    const int error = isWritten && done == text.size() ? 0 : lastError();
    CloseHandle(handle);
    return error;
}

FileIdentity identityOfHandle(HANDLE handle)
{
    BY_HANDLE_FILE_INFORMATION info{};
    if (!GetFileInformationByHandle(handle, &info) ||
        (info.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) != 0)
        return {};
    return {std::uint64_t{info.dwVolumeSerialNumber} + 1,
            std::uint64_t{info.nFileIndexHigh} << 32 | info.nFileIndexLow};
}

OVERLAPPED at(std::uint64_t offset)
{
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

bool aligned(std::uint64_t offset, const std::uint8_t* data, std::size_t size)
{
    return offset % alignment == 0 && size % alignment == 0 && reinterpret_cast<std::uintptr_t>(data) % alignment == 0;
}

} // namespace

/// Direct writes go through a handle of their own, because the mode of a handle can't be changed.
struct DirectFile::Handle
{
    HANDLE plain = INVALID_HANDLE_VALUE;
    HANDLE direct = INVALID_HANDLE_VALUE;

    ~Handle()
    {
        if (direct != INVALID_HANDLE_VALUE)
            CloseHandle(direct);
        if (plain != INVALID_HANDLE_VALUE)
            CloseHandle(plain);
    }
};

DirectFile::DirectFile(std::unique_ptr<Handle> handle)
    : m_handle(std::move(handle))
{}

DirectFile::~DirectFile() = default;

int DirectFile::create(const std::filesystem::path& path, std::unique_ptr<DirectFile>& file)
{
    auto handle = std::make_unique<Handle>();
    handle->plain = openHandle(path, GENERIC_READ | GENERIC_WRITE | DELETE, CREATE_NEW, 0);
    if (handle->plain == INVALID_HANDLE_VALUE)
        return lastError();
    handle->direct = openHandle(path, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING, FILE_FLAG_NO_BUFFERING);
    file.reset(new DirectFile(std::move(handle)));
    return 0;
}

int DirectFile::open(const std::filesystem::path& path, bool readOnly, std::unique_ptr<DirectFile>& file)
{
    auto handle = std::make_unique<Handle>();
    handle->plain = openHandle(path, GENERIC_READ | (readOnly ? 0 : GENERIC_WRITE | DELETE), OPEN_EXISTING, 0);
    if (handle->plain == INVALID_HANDLE_VALUE)
        return lastError();
    if (!identityOfHandle(handle->plain).known())
        return EINVAL;
    file.reset(new DirectFile(std::move(handle)));
    return 0;
}

int DirectFile::leaveDirectMode()
{
    if (m_handle->direct != INVALID_HANDLE_VALUE)
        CloseHandle(std::exchange(m_handle->direct, INVALID_HANDLE_VALUE));
    return 0;
}

int DirectFile::writeAt(std::uint64_t offset, const std::uint8_t* data, std::size_t size)
{
    if (!aligned(offset, data, size))
        leaveDirectMode();
    while (size > 0) {
        const HANDLE handle = m_handle->direct != INVALID_HANDLE_VALUE ? m_handle->direct : m_handle->plain;
        OVERLAPPED place = at(offset);
        DWORD done = 0;
        if (!WriteFile(handle, data, static_cast<DWORD>(std::min(size, maxPart)), &done, &place)) {
            const int error = lastError();
            if (error != EINVAL || handle == m_handle->plain)
                return error;
            leaveDirectMode();
            continue;
        }
        if (done == 0)
            return ENOSPC;
        offset += done;
        data += done;
        size -= done;
    }
    return 0;
}

int DirectFile::readAt(std::uint64_t offset, std::uint8_t* data, std::size_t size, std::size_t& got)
{
    got = 0;
    while (got < size) {
        OVERLAPPED place = at(offset + got);
        DWORD done = 0;
        if (!ReadFile(m_handle->plain, data + got, static_cast<DWORD>(std::min(size - got, maxPart)), &done, &place)) {
            if (GetLastError() == ERROR_HANDLE_EOF)
                break;
            return lastError();
        }
        if (done == 0)
            break;
        got += done;
    }
    return 0;
}

int DirectFile::length(std::uint64_t& bytes)
{
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(m_handle->plain, &size))
        return lastError();
    bytes = static_cast<std::uint64_t>(size.QuadPart);
    return 0;
}

int DirectFile::truncate(std::uint64_t bytes)
{
    leaveDirectMode();
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(bytes);
    return SetFilePointerEx(m_handle->plain, place, nullptr, FILE_BEGIN) && SetEndOfFile(m_handle->plain) ? 0
                                                                                                          : lastError();
}

int DirectFile::sync()
{
    return FlushFileBuffers(m_handle->plain) ? 0 : lastError();
}

FileIdentity DirectFile::identity() const
{
    return identityOfHandle(m_handle->plain);
}

int DirectFile::remove(const std::filesystem::path& path)
{
    if (!(identityOf(path) == identity()))
        return ENOENT;
    return DeleteFileW(path.c_str()) ? 0 : lastError();
}

int DirectFile::rename(const std::filesystem::path& from, const std::filesystem::path& to)
{
    if (!(identityOf(from) == identity()))
        return ENOENT;
    return MoveFileExW(from.c_str(), to.c_str(), 0) ? 0 : lastError();
}

FileIdentity identityOf(const std::filesystem::path& path)
{
    const HANDLE handle = openHandle(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, 0);
    if (handle == INVALID_HANDLE_VALUE)
        return {};
    const FileIdentity identity = identityOfHandle(handle);
    CloseHandle(handle);
    return identity;
}

bool nameTaken(const std::filesystem::path& path)
{
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::vector<std::filesystem::path> entriesOf(const std::filesystem::path& folder, std::size_t most)
{
    std::vector<std::filesystem::path> entries;
    WIN32_FIND_DATAW data{};
    const HANDLE found = FindFirstFileW((folder / L"*").c_str(), &data);
    if (found == INVALID_HANDLE_VALUE)
        return entries;
    const std::unique_ptr<void, BOOL(WINAPI*)(HANDLE)> open(found, &FindClose);
    do {
        const std::wstring name = data.cFileName;
        if (name != L"." && name != L"..")
            entries.push_back(folder / name);
    } while (entries.size() < most && FindNextFileW(found, &data));
    return entries;
}

int syncFolder(const std::filesystem::path&)
{
    return 0; // NTFS journals its names
}

int replaceSmallFile(const std::filesystem::path& path, const std::string& text)
{
    const std::filesystem::path part = path.wstring() + L".part";
    int error = writeText(openHandle(part, GENERIC_WRITE, CREATE_ALWAYS, 0), text);
    if (error == 0 && !MoveFileExW(part.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING))
        error = lastError();
    if (error != 0)
        DeleteFileW(part.c_str());
    return error;
}

int appendToSmallFile(const std::filesystem::path& path, const std::string& text)
{
    return writeText(openHandle(path, FILE_APPEND_DATA, OPEN_EXISTING, 0), text);
}

int syncFile(const std::filesystem::path& path)
{
    const HANDLE handle = openHandle(path, GENERIC_WRITE, OPEN_EXISTING, 0);
    if (handle == INVALID_HANDLE_VALUE)
        return lastError();
    const int error = FlushFileBuffers(handle) ? 0 : lastError();
    CloseHandle(handle);
    return error;
}

std::int64_t birthTimeNs(const std::filesystem::path& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data))
        return 0;
    constexpr std::int64_t from1601To1970 = 116'444'736'000'000'000;
    const std::int64_t ticks =
        static_cast<std::int64_t>(data.ftCreationTime.dwHighDateTime) << 32 | data.ftCreationTime.dwLowDateTime;
    return (ticks - from1601To1970) * 100;
}

std::uint8_t* allocateAligned(std::size_t bytes)
{
    return static_cast<std::uint8_t*>(_aligned_malloc(bytes, alignment));
}

void freeAligned(std::uint8_t* memory)
{
    _aligned_free(memory);
}

void keepLargeBlocksOnHeap(std::size_t) {}

} // namespace vaws
