// The registry of XML applications, and the run of one document through the right one.
//
// An application is a director (XaDirector.h) that has registered for a media type, and perhaps
// for a public identifier. Media types are the numbers of HedMediaTypeMap.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "CpsString.h"
#include "HedCharsetId.h"
#include "XaException.h"
#include "XaOutput.h"

namespace lumnis {

class XaDirector;

// One object for the process, made on first use. Any number of threads; a run keeps nothing here.
class XaProducer {
  public:
    class NoDirectorException;
    class DuplicateDirectorException;

    // A registration under it serves documents of every media type.
    static constexpr int theAnyMediaType = -2;

    static XaProducer& instance();

    XaProducer(const XaProducer&) = delete;
    XaProducer& operator=(const XaProducer&) = delete;

    // A null thePublicId stands for the empty one: the director takes the documents of
    // theMediaType whose identifier nobody has registered, and those without one. theDirector is
    // not owned and must stay for the life of the process. The same registration again does
    // nothing; a second director under one key is logged and throws DuplicateDirectorException.
    void registerDirector(XaDirector* theDirector, const CpsString* thePublicId, int theMediaType);

    // Reads the prolog of theDocument, which is UTF-8, and hands the rest to the director for
    // (theMediaType, public identifier), else (theMediaType, any), else the same two for any media
    // type. theCharset is that of the strings in the result. theOutput receives the WBXML, on
    // success alone; *theOutputMediaType its media type, which is known before the root is parsed
    // and may be written for a document that is refused. A terminator is written behind
    // theDocument.
    //
    // Throws XpParserError for all that is wrong with the document, NoDirectorException,
    // XpInternalError, CCException.
    std::unique_ptr<XaOutput> process(const CpsString& theDocument, int theMediaType,
                                      HedCharsetId theCharset, int* theOutputMediaType,
                                      CpsString& theOutput);

  private:
    // By media type, then by the bytes of the public identifier.
    using Key = std::pair<int, CpsString>;

    XaProducer() = default;
    ~XaProducer() = default;

    XaDirector& findDirector(int theMediaType, const CpsString& thePublicId) const;

    mutable std::mutex mutexM;
    std::map<Key, XaDirector*> directorsM;
};

class XaProducer::NoDirectorException final : public XaException {
  public:
    explicit NoDirectorException(std::optional<CpsString> thePublicId);

    CpsString toString() const override;

  private:
    std::optional<CpsString> publicIdM;
};

class XaProducer::DuplicateDirectorException final : public XaException {};

}  // namespace lumnis
