#include "files/platform.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <io.h>
#include <string>
#include <system_error>
#include <windows.h>

// A drive without a medium is told of by the call that asks it, not by a box that the system puts up.
[[maybe_unused]] static const UINT noBoxes = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);

// How the system's errors are called in C. Of those of one name, the first gives the words.
struct Failure {
    DWORD code;
    int number;
};
static constexpr std::array failures = {
    Failure{ERROR_FILE_NOT_FOUND, ENOENT}, Failure{ERROR_PATH_NOT_FOUND, ENOENT},
    Failure{ERROR_ACCESS_DENIED, EACCES},  Failure{ERROR_SHARING_VIOLATION, EBUSY},
    Failure{ERROR_LOCK_VIOLATION, EBUSY},  Failure{ERROR_ALREADY_EXISTS, EEXIST},
    Failure{ERROR_FILE_EXISTS, EEXIST},    Failure{ERROR_NOT_SAME_DEVICE, EXDEV},
    Failure{ERROR_DISK_FULL, ENOSPC},      Failure{ERROR_HANDLE_DISK_FULL, ENOSPC},
    Failure{ERROR_WRITE_PROTECT, EROFS},   Failure{ERROR_NOT_READY, ENODEV},
    Failure{ERROR_INVALID_NAME, EINVAL},   Failure{ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    Failure{ERROR_DIRECTORY, ENOTDIR},
};

static int numberOf(DWORD code)
{
    const auto *failure = std::ranges::find(failures, code, &Failure::code);
    return failure == failures.end() ? EIO : failure->number;
}

static QString wordsOf(DWORD code)
{
    const QString words = qt_error_string(static_cast<int>(code)).trimmed();
    return words.endsWith('.') ? words.chopped(1) : words;
}

QString systemReason()
{
    const auto *failure = std::ranges::find(failures, errno, &Failure::number);
    return failure == failures.end() ? QString::fromStdString(std::generic_category().message(errno))
                                     : wordsOf(failure->code);
}

// The form that may have more than 260 characters.
static std::wstring systemPath(const QString &path)
{
    QString whole = QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    if (whole.startsWith("\\\\"))
        whole.replace(0, 2, "\\\\?\\UNC\\");
    else
        whole.prepend("\\\\?\\");
    return whole.toStdWString();
}

// A file or a folder that is open for others as well; INVALID_HANDLE_VALUE where it cannot be opened.
static HANDLE openBeside(const std::wstring &path, DWORD access)
{
    return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

// Whether it can be opened so; else GetLastError() tells why.
static bool canBeOpened(const std::wstring &path, DWORD access)
{
    const HANDLE handle = openBeside(path, access);
    return handle != INVALID_HANDLE_VALUE && CloseHandle(handle) != 0;
}

bool syncFile(int handle)
{
    return _commit(handle) == 0;
}

void beginSync(int) { }

void forgetCached(int) { }

bool syncFileSystem(int)
{
    return false; // only administrators may
}

void syncFolder(const QString &folder)
{
    const HANDLE handle = openBeside(systemPath(folder), GENERIC_WRITE);
    if (handle == INVALID_HANDLE_VALUE)
        return;
    FlushFileBuffers(handle);
    CloseHandle(handle);
}

static bool isFolder(const std::wstring &path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Why a file could not be moved to a place. That another program holds open what lies there, the system only
// says when that is to be opened.
static DWORD reasonAt(const std::wstring &to)
{
    const DWORD code = GetLastError();
    const bool isHeld =
        code == ERROR_ACCESS_DENIED && !canBeOpened(to, DELETE) && GetLastError() == ERROR_SHARING_VIOLATION;
    return isHeld ? ERROR_SHARING_VIOLATION : code;
}

// A browser or a virus scanner may have the file open for a moment, so it is tried for two seconds.
static bool move(const QString &from, const QString &to, DWORD flags)
{
    static constexpr int longest = 2000; // milliseconds
    static constexpr int pause = 50;
    const std::wstring source = systemPath(from);
    const std::wstring target = systemPath(to);
    QElapsedTimer waited;
    waited.start();
    while (!MoveFileExW(source.c_str(), target.c_str(), flags | MOVEFILE_WRITE_THROUGH)) {
        const int number = numberOf(reasonAt(target));
        if ((number != EBUSY && number != EACCES) || isFolder(target) || waited.hasExpired(longest)) {
            errno = number;
            return false;
        }
        Sleep(pause);
    }
    return true;
}

bool renameOver(const QString &from, const QString &to)
{
    return move(from, to, MOVEFILE_REPLACE_EXISTING);
}

bool renameOverNothing(const QString &from, const QString &to)
{
    return move(from, to, 0);
}

// What the last call says of a path: nothing is there. The top of a drive that has no medium is no folder
// that is missing: what was there may come back with it.
static bool wasNothingThere(const std::wstring &path)
{
    static constexpr size_t beforeDrive = 4; // "\\?\"
    static constexpr size_t topOfDrive = 3;
    const DWORD code = GetLastError();
    if (code != ERROR_PATH_NOT_FOUND)
        return code == ERROR_FILE_NOT_FOUND || code == ERROR_INVALID_NAME;
    const std::wstring top = path.substr(beforeDrive, topOfDrive);
    return top.size() < topOfDrive || top[1] != L':' || isFolder(top);
}

bool isNothingThere(const QString &path)
{
    const std::wstring asked = systemPath(path);
    return GetFileAttributesW(asked.c_str()) == INVALID_FILE_ATTRIBUTES && wasNothingThere(asked);
}

bool isMissing(const QString &path)
{
    const std::wstring asked = systemPath(path);
    const DWORD attributes = GetFileAttributesW(asked.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return wasNothingThere(asked);
    const bool isLink = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    return isLink && !canBeOpened(asked, 0) && wasNothingThere(asked);
}

void limitMemory(QProcess &, qint64) { }

FileState stateOfFile(const std::filesystem::path &path)
{
    const QFileInfo file(path);
    const QDateTime changed = file.fileTime(QFileDevice::FileModificationTime);
    return file.isFile() ? FileState{file.size(), changed.toMSecsSinceEpoch()} : FileState();
}

QString obstacleTo(const QString &folder)
{
    WIN32_FIND_DATAW found;
    const std::wstring path = systemPath(folder);
    const std::wstring all = path + (path.ends_with(L'\\') ? L"*" : L"\\*");
    const HANDLE search = FindFirstFileW(all.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) // the top of an empty drive has no entries at all
        return GetLastError() == ERROR_FILE_NOT_FOUND && isFolder(path) ? QString() : wordsOf(GetLastError());
    FindClose(search);
    return {};
}

bool isForbiddenName(const QString &name)
{
    static const QStringList devices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    const auto isForbidden = [](QChar character) {
        return character < ' ' || QStringView(u"<>:\"/\\|?*").contains(character);
    };
    const QString stem = name.section('.', 0, 0).trimmed().toUpper();
    const bool isPort = stem.size() == 4 && (stem.startsWith("COM") || stem.startsWith("LPT"))
        && QStringView(u"123456789¹²³").contains(stem.back());
    return isPort || devices.contains(stem) || name.endsWith(' ') || name.endsWith('.')
        || std::ranges::any_of(name, isForbidden);
}

QString driveName(const QString &drive)
{
    std::array<wchar_t, MAX_PATH + 1> name{};
    const std::wstring top = QDir::toNativeSeparators(drive).toStdWString();
    const bool isKnown = GetVolumeInformationW(top.c_str(), name.data(), static_cast<DWORD>(name.size()),
                                               nullptr, nullptr, nullptr, nullptr, 0);
    return isKnown ? QString::fromWCharArray(name.data()) : QString();
}

QString betterWorkingFolder()
{
    std::array<wchar_t, MAX_PATH> windows{};
    std::array<wchar_t, MAX_PATH> system{};
    GetWindowsDirectoryW(windows.data(), MAX_PATH);
    GetSystemDirectoryW(system.data(), MAX_PATH);
    const QString here = QDir::current().canonicalPath();
    for (const QString &other :
         {QCoreApplication::applicationDirPath(), QString::fromWCharArray(windows.data()),
          QString::fromWCharArray(system.data())}) {
        if (QDir(other).canonicalPath().compare(here, Qt::CaseInsensitive) == 0)
            return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + "/Tessaline";
    }
    return {};
}
