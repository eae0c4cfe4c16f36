#include "GrowingFile.h"

#include <fstream>

GrowingFile::GrowingFile(const ClipSource& source, std::size_t fragmentBytes, vaws::AssemblyRequest request)
{
    vaws::StreamAssembler assembler(*this, request);
    assembler.streamInfo(source.info());
    for (const ClipSource::Frame& frame : source.frames()) {
        vav::FrameHeader header = frame.header;
        header.payloadBytes = static_cast<std::uint32_t>(frame.payload.size());
        const auto outcome = assembler.frame(header, frame.payload.data());
        if (outcome != vaws::StreamAssembler::Outcome::Going)
            break;
        assembler.setFragmentLimit(fragmentBytes);
    }
    assembler.finish();
}

std::unique_ptr<vaws::MediaBuffer> GrowingFile::newBuffer(std::size_t bytes)
{
    return std::make_unique<vaws::MediaBuffer>(std::max<std::size_t>(bytes, 1024 * 1024));
}

void GrowingFile::submit(std::unique_ptr<vaws::MediaBuffer> buffer)
{
    if (fragments.empty()) {
        assembly = vaws::MovieAssembly(plan->formats, plan->header, plan->tags);
    }
    file.writeAt(buffer->fileOffset, buffer->data, buffer->used);
    fragmentsEnd = buffer->fileOffset + buffer->used;
    for (vaws::FragmentInfo& fragment : buffer->fragments) {
        assembly.addFragment(fragment);
        fragments.push_back(std::move(fragment));
    }
}

void GrowingFile::openOutput(std::shared_ptr<vaws::OutputPlan> opened)
{
    plan = std::move(opened);
    ++outputs;
}

void GrowingFile::closeOutput(bool, std::int64_t) {}

void saveBytes(const std::string& path, const std::vector<std::uint8_t>& bytes)
{
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}
