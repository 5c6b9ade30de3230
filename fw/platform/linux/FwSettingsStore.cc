// The settings are a text file, in the form of FwSettingsText.h. A file that is not there is an
// empty store.
#include "FwSettingsStore.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "FwSettingsText.h"

namespace lumnis {

namespace {

constexpr char theSettingsFile[] = "/etc/lumnisutil.conf";
constexpr char theSettingsVariable[] = "LUMNISUTIL_SETTINGS";
constexpr std::size_t theLargestSettings = std::size_t{1} << 20;

// A process that runs with the rights of its file's owner does not listen to its caller.
const char* settingsPath() {
    const char* path = ::secure_getenv(theSettingsVariable);
    return path != nullptr && *path != '\0' ? path : theSettingsFile;
}

// Closes a descriptor at the end of its scope.
class Descriptor {
  public:
    explicit Descriptor(int theHandle) : handleM(theHandle) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (handleM >= 0) {
            ::close(handleM);
        }
    }
    int get() const { return handleM; }

  private:
    const int handleM;
};

// 0 or the error.
int readWhole(const char* thePath, std::string& theContent) {
    // O_NONBLOCK: a pipe that nobody writes to must not hold the host up.
    const Descriptor file(::open(thePath, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (file.get() < 0) {
        return errno;
    }
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) {
        return errno;
    }
    if (!S_ISREG(status.st_mode)) {
        return S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    }
    char buffer[4096];
    for (;;) {
        const ssize_t size = ::read(file.get(), buffer, sizeof buffer);
        if (size == 0) {
            return 0;
        }
        if (size < 0) {
            if (errno == EINTR) {
                continue;
            }
            return errno;
        }
        theContent.append(buffer, static_cast<std::size_t>(size));
        if (theContent.size() > theLargestSettings) {
            return EFBIG;
        }
    }
}

}  // namespace

struct FwSettingsStore::State {
    // Remembers why an operation failed.
    bool fail(int theError) const {
        error = theError;
        return false;
    }

    FwSettingsText text;
    const FwSettingsText::Section* openKey = nullptr;
    mutable int error = 0;       // of the latest failure
    std::size_t brokenLine = 0;  // of the file, when the failure is one of its form
};

FwSettingsStore::FwSettingsStore() : stateM(std::make_unique<State>()) {}

FwSettingsStore::~FwSettingsStore() = default;

bool FwSettingsStore::connect(const char* theMachine, FwHive theHive) {
    static_cast<void>(theHive);
    if (theMachine != nullptr) {
        return stateM->fail(EOPNOTSUPP);
    }
    std::string content;
    const int error = readWhole(settingsPath(), content);
    if (error == ENOENT) {
        return true;
    }
    if (error != 0) {
        return stateM->fail(error);
    }
    stateM->brokenLine = stateM->text.parse(content);
    return stateM->brokenLine == 0 || stateM->fail(EINVAL);
}

bool FwSettingsStore::openKey(std::string_view theKey) {
    stateM->openKey = stateM->text.findKey(theKey);
    return stateM->openKey != nullptr || stateM->fail(ENOENT);
}

bool FwSettingsStore::queryValue(std::string_view theName, CpsString& theValue) const {
    if (stateM->openKey == nullptr) {
        return stateM->fail(EBADF);
    }
    const std::string* value = FwSettingsText::findValue(*stateM->openKey, theName);
    if (value == nullptr) {
        return stateM->fail(ENODATA);
    }
    theValue = *value;
    return true;
}

bool FwSettingsStore::closeKey() {
    if (stateM->openKey == nullptr) {
        return stateM->fail(EBADF);
    }
    stateM->openKey = nullptr;
    return true;
}

std::string FwSettingsStore::errorText() const {
    std::string text = std::generic_category().message(stateM->error);
    if (stateM->brokenLine != 0) {
        text += ", line " + std::to_string(stateM->brokenLine) + " of " + settingsPath();
    }
    return text;
}

}  // namespace lumnis
