#pragma once

#include "ClipSource.h"
#include "MemoryFile.h"
#include "MovieAssembly.h"
#include "StreamAssembler.h"

#include <memory>
#include <string>
#include <vector>

/// A clip written into memory by the real assembler, without threads and disk: the file as it grows, fragment by
/// fragment.
class GrowingFile final : private vaws::AssemblyPort
{
public:
    /// `fragmentBytes` makes fragments small, so that there are many.
    explicit GrowingFile(const ClipSource& source, std::size_t fragmentBytes = 16 * 1024,
                         vaws::AssemblyRequest request = {});

    MemoryFile file;
    vaws::MovieAssembly assembly;
    std::uint64_t fragmentsEnd = 0;
    std::vector<vaws::FragmentInfo> fragments;
    std::shared_ptr<vaws::OutputPlan> plan;
    int outputs = 0;

private:
    std::unique_ptr<vaws::MediaBuffer> newBuffer(std::size_t bytes) override;
    void submit(std::unique_ptr<vaws::MediaBuffer> buffer) override;
    void openOutput(std::shared_ptr<vaws::OutputPlan> opened) override;
    void closeOutput(bool switched, std::int64_t nextNs) override;
};

/// Writes bytes to a file.
void saveBytes(const std::string& path, const std::vector<std::uint8_t>& bytes);
