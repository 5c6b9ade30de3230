// Writing products so that a failed or interrupted run leaves either the old file or the whole
// new one.
#pragma once

#include <string>
#include <string_view>

namespace lumnis {

// To be called once, before the first output and before any thread: SIGINT, SIGTERM and SIGHUP
// remove the temporary file before they end the process, a closed pipe and a file size limit
// become errors of the write, and descriptors 0 to 2 are open from then on.
void prepareOutput();

// Writes all of theBytes to thePath. A regular or new file is written beside its place under a
// temporary name and then renamed: through a link to what the link names, with the mode of the
// file that it replaces, or that of the umask. What is no regular file (a device, a FIFO) gets
// the bytes straight, and so does an open descriptor under its name in /dev/fd.
// For one thread at a time. Throws CliFileError.
void writeOutput(const std::string& thePath, std::string_view theBytes);

// Writes all of theBytes to an open descriptor; theName is for the message. Throws CliFileError.
void writeDescriptor(int theDescriptor, std::string_view theBytes, const std::string& theName);

// Writes the text of a verb that has no other product to standard output. Throws CliUsageError, so
// that the program ends with its message and status.
void printText(std::string_view theText);

// The descriptor that thePath is a name of, as /dev/stdout and /dev/fd/7 are; -1 for others.
int namedDescriptor(const std::string& thePath);

// Makes a folder and those above it where they are missing. Throws CliFileError.
void makeFolder(const std::string& thePath);

// A text that two paths share exactly when writing one would replace the other: made from device
// and number of an existing file, from the resolved path otherwise. Empty for what is no regular
// file, since nothing is replaced there.
std::string outputIdentity(const std::string& thePath);

}  // namespace lumnis
