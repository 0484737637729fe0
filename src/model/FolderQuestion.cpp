#include "model/FolderQuestion.h"

#include "model/CameraSearch.h"

namespace lumivex {
namespace {

// A card may hold more than one folder that reads "DCIM" (a link beside the real one): each
// is looked into in turn, the numbered folders in name order.
void FindCamera(const FolderLister& lister, FolderAnswer& a) {
    a.folders = lister.Folders(a.path);
    for (const ShownFolder& top : a.folders) {
        if (top.name != "DCIM") continue;
        std::vector<ShownFolder> rows = lister.Folders(top.path);
        for (const ShownFolder& sub : rows) {
            if (!CameraSearch::AutoSelect2(sub.name)) continue;
            a.dcim = top.path;
            a.folder = sub.path;
            a.dcimRows = std::move(rows);
            return;
        }
    }
}

}  // namespace

FolderAnswer FolderAnswer::To(const FolderQuestion& q, const FolderLister& lister) {
    FolderAnswer a;
    a.kind = q.kind;
    a.serial = q.serial;
    a.path = q.path;
    a.round = q.round;
    switch (q.kind) {
        case FolderQuestion::Kind::Marks:
            a.hasSubFolder = lister.HasSubFolder(q.path);
            a.exif = lister.HasExifFile(q.path, q.options);
            break;
        case FolderQuestion::Kind::Children:
            a.folders = lister.Folders(q.path);
            break;
        case FolderQuestion::Kind::Camera:
            FindCamera(lister, a);
            break;
    }
    return a;
}

}  // namespace lumivex
