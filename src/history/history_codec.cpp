#include "history/history_codec.h"

#include <nlohmann/json.hpp>

#include "support/strings.h"

namespace qlm {
namespace {

using Json = nlohmann::ordered_json;

template <class TEnum>
std::string NameOf(const my::CEnumTable& table, TEnum value) {
  return my::Utf8FromWide(my::EnumName(table, static_cast<uint32_t>(value)).value());
}

Json RowJson(const CHistoryRow& row) {
  return {{"task", my::Utf8FromWide(row.taskId)},
          {"source", my::Utf8FromWide(row.source)},
          {"destination", my::Utf8FromWide(row.destination)},
          {"outcome", NameOf(kRowOutcomeNames, row.outcome)},
          {"files", row.files},
          {"bytes", row.bytes},
          {"excluded", row.excluded},
          {"unlisted", row.unlisted},
          {"error", row.error},
          {"detail", row.detail},
          {"message", my::Utf8FromWide(row.message)}};
}

// The readers throw Json::exception for a missing field or one of another type, and std::bad_optional_access
// for a malformed text.
std::wstring Text(const Json& object, const char* key) {
  return my::WideFromUtf8(object.at(key).get_ref<const Json::string_t&>());
}

uint64_t Number(const Json& object, const char* key) {
  return object.at(key).get_ref<const Json::number_unsigned_t&>();
}

template <class TEnum>
TEnum Value(const Json& object, const char* key, const my::CEnumTable& table) {
  return static_cast<TEnum>(my::EnumValue(table, Text(object, key)).value());
}

CHistoryRow ReadRow(const Json& object) {
  CHistoryRow row;
  row.taskId = Text(object, "task");
  row.source = Text(object, "source");
  row.destination = Text(object, "destination");
  row.outcome = Value<RowOutcome>(object, "outcome", kRowOutcomeNames);
  row.files = Number(object, "files");
  row.bytes = Number(object, "bytes");
  row.excluded = Number(object, "excluded");
  row.unlisted = Number(object, "unlisted");
  row.error = static_cast<uint32_t>(Number(object, "error"));
  if (object.contains("detail")) row.detail = static_cast<uint32_t>(Number(object, "detail"));
  row.message = Text(object, "message");
  return row;
}

CHistoryRun ReadRun(const Json& object) {
  CHistoryRun run;
  run.start = my::ParseUtcText(Text(object, "start")).value();
  run.end = my::ParseUtcText(Text(object, "end")).value();
  run.program = Value<RunProgram>(object, "program", kRunProgramNames);
  run.document = Text(object, "document");
  run.stopped = object.at("stopped").get_ref<const Json::boolean_t&>();
  for (const Json& row : object.at("rows").get_ref<const Json::array_t&>()) run.rows.push_back(ReadRow(row));
  return run;
}

}  // namespace

nlohmann::ordered_json HistoryJson(const CHistoryRun& run) {
  Json rows = Json::array();
  for (const CHistoryRow& row : run.rows) rows.push_back(RowJson(row));
  return {{"start", my::Utf8FromWide(my::UtcText(run.start))},
          {"end", my::Utf8FromWide(my::UtcText(run.end))},
          {"program", NameOf(kRunProgramNames, run.program)},
          {"document", my::Utf8FromWide(run.document)},
          {"stopped", run.stopped},
          {"rows", std::move(rows)}};
}

std::string HistoryLine(const CHistoryRun& run) {
  return HistoryJson(run).dump() + "\n";
}

std::optional<CHistoryRun> ParseHistoryLine(std::string_view line) {
  try {
    return ReadRun(Json::parse(line));
  } catch (const Json::exception&) {
    return {};
  } catch (const std::bad_optional_access&) {
    return {};
  }
}

}  // namespace qlm
