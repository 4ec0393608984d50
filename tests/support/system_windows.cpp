#include "support/test_folder.h"

#include <limits>
#include <utility>
#include <windows.h>

// The system has no limit of this kind, so the one call by which Qt writes into files is led past this.
static qint64 room = std::numeric_limits<qint64>::max();

static BOOL WINAPI writeWithinRoom(HANDLE file, const void *bytes, DWORD size, DWORD *written,
                                   OVERLAPPED *overlapped)
{
    LARGE_INTEGER place{};
    const bool isFile =
        GetFileType(file) == FILE_TYPE_DISK && SetFilePointerEx(file, {}, &place, FILE_CURRENT);
    const qint64 left = isFile ? room - place.QuadPart : room;
    if (size > 0 && left <= 0) {
        SetLastError(ERROR_DISK_FULL);
        return FALSE;
    }
    return WriteFile(file, bytes, static_cast<DWORD>(qMin<qint64>(size, left)), written, overlapped);
}

static void leadPast(const char *library, const char *name, ULONG_PTR function)
{
    auto *const base = reinterpret_cast<unsigned char *>(GetModuleHandleA(library));
    const auto *header =
        reinterpret_cast<IMAGE_NT_HEADERS *>(base + reinterpret_cast<IMAGE_DOS_HEADER *>(base)->e_lfanew);
    const IMAGE_DATA_DIRECTORY &imports = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    auto *from = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR *>(base + imports.VirtualAddress);
    for (; from->Name != 0; from += 1) {
        auto *names = reinterpret_cast<IMAGE_THUNK_DATA *>(base + from->OriginalFirstThunk);
        auto *places = reinterpret_cast<IMAGE_THUNK_DATA *>(base + from->FirstThunk);
        for (; names->u1.AddressOfData != 0; names += 1, places += 1) {
            const auto *import = reinterpret_cast<IMAGE_IMPORT_BY_NAME *>(base + names->u1.AddressOfData);
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal) || qstrcmp(import->Name, name) != 0)
                continue;
            DWORD before = 0;
            VirtualProtect(&places->u1.Function, sizeof function, PAGE_READWRITE, &before);
            places->u1.Function = function;
            VirtualProtect(&places->u1.Function, sizeof function, before, &before);
        }
    }
}

FullDisk::FullDisk(qint64 bytes)
    : before_(std::exchange(room, bytes))
{
    leadPast("Qt6Core.dll", "WriteFile", reinterpret_cast<ULONG_PTR>(&writeWithinRoom));
}

FullDisk::~FullDisk()
{
    room = before_;
}

QString FullDisk::reason()
{
    return qt_error_string(ERROR_DISK_FULL);
}

bool putLink(const QString &, const QString &)
{
    return false;
}

bool putPipe(const QString &path)
{
    return QDir().mkdir(path);
}
