// Advice: what will go wrong, or what a run will silently not do, as far as document and disk show it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "document/document.h"
#include "engine/engine_ports.h"
#include "platform/message_texts.h"

namespace my {
class IStopQuery;
}

namespace qlm {

enum class AdviceKind {
  NameWithoutTime,  // the backup is created once and skipped ever after
  CoarseName,       // later changes of the same hour, day, month or year are skipped
  RepeatingName,    // the name comes again, for example every year
  BadName,          // Windows refuses the name or reads it as another one
  SharedName,       // no <ID>, and several tasks use the destination
  SamePath,         // another destination or task makes the same path
  DstWithinSource,
  SpaceInArchive,
  NoArchiver,
  NoSource,
  BadFilter,
  Leftover,    // an incomplete backup of an interrupted run
  OtherFiles,  // a backup that will be skipped has other files than the source
  NoSpace,
  NoPassword  // must be given for every run
};

enum class AdviceSeverity { Hint, Warning, Error };

struct CAdvice {
  AdviceKind kind;
  AdviceSeverity severity;
  std::optional<size_t> task;  // row in the document; nullopt if no single task is concerned
  std::optional<size_t> dst;   // row in the document
  std::wstring text;
  std::wstring path = {};  // of a leftover
  uint64_t bytes = 0;      // of a leftover
};

// What may be read. Document reads neither disk nor network. LocalDisk leaves out paths of shares, which can
// take half a minute to respond.
enum class AdviceDepth { Document, LocalDisk, Network };

struct CAdviceRequest {
  AdviceDepth depth = AdviceDepth::Network;
  bool archiverMissing = false;          // see IsArchiverMissing
  const my::IStopQuery* stop = nullptr;  // asked while leftovers are measured
  bool passwordMissing = false;          // no password of archives is stored, and nobody can be asked
};

// Returns the findings, grouped by kind and in the order of the lists. Throws IDS_STOPPED.
std::vector<CAdvice> FindAdvice(const CContent& content, const CEnginePorts& ports,
                                const CAdviceRequest& request);

// Returns the text with its severity in front.
std::wstring AdviceLine(const my::IMessageTexts& texts, const CAdvice& advice);

// Returns whether a local source is missing. A source on the network is not checked.
bool IsSourceMissing(my::IFileSystem& files, const std::wstring& path);

// The rows that a finding concerns.
struct CAdvicePlace {
  std::optional<size_t> task;
  std::optional<size_t> dst;
};

// Collects findings.
class CAdviceList {
 public:
  explicit CAdviceList(const my::IMessageTexts& texts) : m_texts(texts) {}

  void Add(AdviceKind kind, AdviceSeverity severity, const CAdvicePlace& place, std::wstring text) {
    m_found.push_back({kind, severity, place.task, place.dst, std::move(text)});
  }
  void Add(AdviceKind kind, AdviceSeverity severity, const CAdvicePlace& place, uint32_t textId,
           const std::vector<my::CMsgArg>& args) {
    Add(kind, severity, place, my::MakeText(m_texts, textId, args));
  }

  CAdvice& Last() { return m_found.back(); }
  std::vector<CAdvice> Take() { return std::move(m_found); }

 private:
  const my::IMessageTexts& m_texts;
  std::vector<CAdvice> m_found;
};

}  // namespace qlm
