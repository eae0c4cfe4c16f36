#pragma once

#include "MediaFile.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace vaws {

/// What makes a file this very file, whatever its name: volume and file number. All zero: unknown.
struct FileIdentity
{
    std::uint64_t volume = 0;
    std::uint64_t number = 0;

    bool known() const { return number != 0; }
    bool operator==(const FileIdentity& other) const { return volume == other.volume && number == other.number; }
};

/// A media file on a disk. Aligned writes go past the page cache where the file system allows it; where not, write-back
/// is started early, so that a sync at the end finds little to do. One unaligned write ends the direct mode for good.
class DirectFile final : public MediaFile
{
public:
    /// Makes `path`, which must not exist, not even as a link: EEXIST then.
    static int create(const std::filesystem::path& path, std::unique_ptr<DirectFile>& file);
    /// Opens a regular file for reading and, unless `readOnly`, writing. Never follows a link as the last part of the
    /// path.
    static int open(const std::filesystem::path& path, bool readOnly, std::unique_ptr<DirectFile>& file);

    ~DirectFile() override;
    DirectFile(const DirectFile&) = delete;
    DirectFile& operator=(const DirectFile&) = delete;

    int writeAt(std::uint64_t offset, const std::uint8_t* data, std::size_t size) override;
    int readAt(std::uint64_t offset, std::uint8_t* data, std::size_t size, std::size_t& got) override;
    int length(std::uint64_t& bytes) override;
    int truncate(std::uint64_t bytes) override;
    int sync() override;

    FileIdentity identity() const;
    /// Takes the name away when it still names this very file.
    int remove(const std::filesystem::path& path);
    /// Renames when `from` still names this very file and nothing stands at `to`.
    int rename(const std::filesystem::path& from, const std::filesystem::path& to);

private:
    struct Handle;
    explicit DirectFile(std::unique_ptr<Handle> handle);
    int leaveDirectMode();
    std::unique_ptr<Handle> m_handle;
};

FileIdentity identityOf(const std::filesystem::path& path); ///< of a regular file; a link is none
/// What stands in a folder, so many at most; empty when it cannot be read. The standard library's iterator ends the
/// process when memory runs out in it.
std::vector<std::filesystem::path> entriesOf(const std::filesystem::path& folder, std::size_t most);
/// The file of this identity inside one folder, empty when it is not there.
std::filesystem::path findByIdentity(const std::filesystem::path& folder, const FileIdentity& identity);
/// Whether anything, of whatever kind, stands at `path`.
bool nameTaken(const std::filesystem::path& path);
/// Names made or removed in the folder are on the disk.
int syncFolder(const std::filesystem::path& folder);
/// Puts `text` at `path` in one step, readable for its owner only.
int replaceSmallFile(const std::filesystem::path& path, const std::string& text);
/// Puts `text` behind what stands at `path`.
int appendToSmallFile(const std::filesystem::path& path, const std::string& text);
int syncFile(const std::filesystem::path& path);
/// When the file came to be, ns since 1970, 0 where the system does not tell.
std::int64_t birthTimeNs(const std::filesystem::path& path);

/// Memory that direct writes may come from.
std::uint8_t* allocateAligned(std::size_t bytes);
void freeAligned(std::uint8_t* memory);
/// Large blocks come from the heap instead of from a mapping each, which costs a page fault a page; for batches of
/// packets.
void keepLargeBlocksOnHeap(std::size_t bytes);

} // namespace vaws
