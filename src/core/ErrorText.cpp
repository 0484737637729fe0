#include "core/ErrorText.h"

#include <cerrno>
#include <cstring>

namespace lumivex {

std::string ErrorText(int errnum) {
    switch (errnum) {
        case ENOSPC:
            return "ディスクの空き容量がありません";
        case EDQUOT:
            return "ディスクの割り当て量を超えました";
        case EACCES:
        case EPERM:
            return "アクセス権がありません";
        case EROFS:
            return "読み出し専用のボリュームです";
        case ENOENT:
            return "見つかりません";
        case ENOTDIR:
            return "途中にフォルダでないものがあります";
        case EISDIR:
            return "フォルダです";
        case EIO:
            return "入出力エラーです";
        case EFBIG:
            return "ファイルが大きすぎます";
        case ENAMETOOLONG:
            return "名前が長すぎます";
        case ELOOP:
            return "リンクが多すぎます";
        case EMFILE:
        case ENFILE:
            return "開いているファイルが多すぎます";
        case ENODEV:
        case ENXIO:
            return "装置がありません";
        default:
            return std::strerror(errnum);
    }
}

}  // namespace lumivex
