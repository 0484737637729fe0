#pragma once
// Quarter turns of thumbnails in memory: the item's "rot" count follows the turn and its width
// and height swap; the picture is turned where it is decoded. The file is never touched, and the
// next scan forgets the turn. The caller lays the grid out again and repaints. Qt-free.
#include <vector>

#include "model/ItemRecord.h"

namespace lumivex {

class ItemRotation {
  public:
    // The commands: the one item pCidx (pCidxFlg 1) or every selected item (pCidxFlg 2).
    // True when the grid must flow anew; nothing happens for pCidxFlg 0.
    static bool RotateImageL(std::vector<ItemRecord>& items, int pCidxFlg, int pCidx);
    static bool RotateImageR(std::vector<ItemRecord>& items, int pCidxFlg, int pCidx);

    static void RotateImageLMulti(std::vector<ItemRecord>& items);
    static void RotateImageRMulti(std::vector<ItemRecord>& items);
    // An item without a picture is left as it is.
    static void RotateImageLSingle(ItemRecord& item);
    static void RotateImageRSingle(ItemRecord& item);

    // `value` + `delta`, wrapped into 0..3.
    static int RotateImageCnt(int value, int delta);

  private:
    static bool Rotate(std::vector<ItemRecord>& items, int pCidxFlg, int pCidx, bool left);
    static void Turn(ItemRecord& item, int delta);
};

}  // namespace lumivex
