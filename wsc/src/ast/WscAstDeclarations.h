// The top of the tree: the unit, its pragmas and its functions. Their order is the order of
// numbers and constants in the file.
#pragma once

#include "WscSimpleNode.h"

namespace lumnis {

// Pragmas, function declarations. Writes the file when all code exists.
class WscAstCompilationUnit final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::CompilationUnit;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

class WscAstPragmas final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::Pragmas;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData&, WscActionFrame& theFrame) const {
        return nextChild(theFrame);
    }
};

// Registers all functions, then compiles each: a call may stand ahead of its callee.
class WscAstFunctionDeclarations final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::FunctionDeclarations;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// Extern or Empty, identifier, parameters, block.
class WscAstFunctionDeclaration final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::FunctionDeclaration;
    using WscSimpleNode::WscSimpleNode;
    // The first pass: gives the function its number.
    void addFunctionInfo(WscCompilerData& theData) const;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

class WscAstFormalParameterList final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::FormalParameterList;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData&, WscActionFrame&) const { return nullptr; }
};

// use url: name, URL.
class WscAstExternalCompilationUnitPragma final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::ExternalCompilationUnitPragma;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// use access domain.
class WscAstAccessControlDomain final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::AccessControlDomain;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// use access path.
class WscAstAccessControlPath final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::AccessControlPath;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// use access domain path: domain, path.
class WscAstAccessControlDomainPath final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::AccessControlDomainPath;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// use meta name: property, content, scheme or Empty; so the next two.
class WscAstMetaName final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::MetaName;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// use meta http equiv.
class WscAstMetaHttpEquiv final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::MetaHttpEquiv;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

// use meta user agent. The only meta pragma that reaches the file.
class WscAstMetaUserAgent final : public WscSimpleNode {
  public:
    static constexpr WscNodeType theNodeType = WscNodeType::MetaUserAgent;
    using WscSimpleNode::WscSimpleNode;
    const WscSimpleNode* semanticAction(WscCompilerData& theData, WscActionFrame& theFrame) const;
};

}  // namespace lumnis
