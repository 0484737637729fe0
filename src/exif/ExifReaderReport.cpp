// The report entry point of ExifReader; the texts themselves are built by ExifReport.
#include "exif/ExifReader.h"
#include "exif/ExifReport.h"

namespace lumivex {

void ExifReader::GetInfo(std::string& s1, std::string& s2, std::string& s3, std::string& s4,
                         std::string& s5, std::string& s6) const {
    const ExifReport report(IFD0, IFDe);
    s1 = report.GetInfo1();
    s2 = report.GetInfo2();
    s3 = report.GetInfo3();
    s4 = report.GetInfo4();
    s5 = report.GetInfo5();
    s6 = report.GetInfo6();
}

}  // namespace lumivex
