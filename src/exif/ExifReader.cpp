#include "exif/ExifReader.h"

#include "exif/ContainerWalk.h"
#include "exif/DirectoryReader.h"
#include "exif/ExifTagTable.h"
#include "exif/ValueReader.h"

namespace lumivex {
namespace {

constexpr std::uint32_t kExifPointer = 0x8769;
constexpr std::uint32_t kGpsPointer = 0x8825;

}  // namespace

void ExifReader::InitVal() {
    offset = 12;
    IFD0.Clear();
    IFD1.Clear();
    IFDe.Clear();
    IFDg.Clear();
}

void ExifReader::GetExif() {
    InitVal();
    ret = LoadFile();
    src_.Close();
}

bool ExifReader::OpenSource() {
    if (!fbytes.empty()) {
        src_.OpenMemory(fbytes);
        return true;
    }
    return src_.OpenFile(fitem);
}

ValueReader ExifReader::Values() {
    return ValueReader(src_, code_, offset);
}

bool ExifReader::LoadFile() {
    IFD0_Offset = IFD1_Offset = IFDe_Offset = IFDg_Offset = 0;
    IFD0_Max = IFD1_Max = IFDe_Max = IFDg_Max = 0;
    IFD0_Dir.clear();
    IFD1_Dir.clear();
    IFDe_Dir.clear();
    IFDg_Dir.clear();
    code_ = 0;
    opened_ = OpenSource();
    if (!opened_) return false;
    std::uint64_t pos = 0;
    if (!ContainerWalk::ToTiffHeader(src_, pos, offset)) return false;
    code_ = ContainerWalk::BigEndian16(src_, pos);
    pos += 4;  // the mark and the TIFF number, which is not checked
    IFD0_Offset = Values().Position(ContainerWalk::Fold(src_, pos, code_, 4));
    LoadDirectories(IFD0_Offset);
    return IFD0_Max > 0;
}

void ExifReader::LoadDirectories(std::uint64_t ifd0Pos) {
    const std::uint64_t tail =
        ContainerWalk::ReadDirectory(src_, ifd0Pos, code_, IFD0_Max, IFD0_Dir);
    if (IFD0_Max == 0) return;
    ValueReader values = Values();
    for (const DirEntry& e : IFD0_Dir) {
        if (e.tag == kExifPointer) IFDe_Offset = values.Position(e.offset);
        if (e.tag == kGpsPointer) IFDg_Offset = values.Position(e.offset);
    }
    const std::uint32_t next = ContainerWalk::Fold(src_, tail, code_, 4);
    IFD1_Offset = next == 0 ? 0 : values.Position(next);

    DirectoryReader reader(values);
    if (IFD1_Offset > 0) {
        ContainerWalk::ReadDirectory(src_, IFD1_Offset, code_, IFD1_Max, IFD1_Dir);
        reader.Run(IFD1_Dir, Ifd1Rows(), IFD1);
    }
    if (!ReadAllTags) return;
    if (IFDe_Offset > 0) ContainerWalk::ReadDirectory(src_, IFDe_Offset, code_, IFDe_Max, IFDe_Dir);
    if (IFDg_Offset > 0) ContainerWalk::ReadDirectory(src_, IFDg_Offset, code_, IFDg_Max, IFDg_Dir);
    reader.Run(IFD0_Dir, Ifd0Rows(), IFD0);
    if (IFDe_Offset > 0) reader.Run(IFDe_Dir, ExifRows(), IFDe);
    if (IFDg_Offset > 0) reader.Run(IFDg_Dir, GpsRows(), IFDg);
}

}  // namespace lumivex
