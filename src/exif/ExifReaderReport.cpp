// The report entry points of ExifReader; the texts themselves are built by ExifReport.
#include "exif/ExifReader.h"
#include "exif/ExifReport.h"

namespace lumivex {

void ExifReader::GetInfo(std::string& s1, std::string& s2, std::string& s3, std::string& s4,
                         std::string& s5, std::string& s6) const {
    s1 = GetInfo1();
    s2 = GetInfo2();
    s3 = GetInfo3();
    s4 = GetInfo4();
    s5 = GetInfo5();
    s6 = GetInfo6();
}

std::string ExifReader::GetInfo1() const {
    return ExifReport(IFD0, IFDe).GetInfo1();
}
std::string ExifReader::GetInfo2() const {
    return ExifReport(IFD0, IFDe).GetInfo2();
}
std::string ExifReader::GetInfo3() const {
    return ExifReport(IFD0, IFDe).GetInfo3();
}
std::string ExifReader::GetInfo4() const {
    return ExifReport(IFD0, IFDe).GetInfo4();
}
std::string ExifReader::GetInfo5() const {
    return ExifReport(IFD0, IFDe).GetInfo5();
}
std::string ExifReader::GetInfo6() const {
    return ExifReport(IFD0, IFDe).GetInfo6();
}

}  // namespace lumivex
