// The plan in the console: text for people or JSON for programs.
#pragma once

#include <memory>

#include "engine/plan_advice.h"
#include "run/runner.h"

namespace qlm {

class IPlanOutput {
 public:
  virtual ~IPlanOutput() = default;
  virtual void Task(const CPlanTask& plan) = 0;
  virtual void Advice(const CContent& content, const CAdvice& advice) = 0;
  virtual void End(const CPlanSummary& summary) = 0;
};

// With `quiet` only what would fail is shown.
std::unique_ptr<IPlanOutput> MakeTextPlan(const CRunnerPorts& ports, bool quiet);
std::unique_ptr<IPlanOutput> MakeJsonPlan(const CRunnerPorts& ports, bool quiet);

}  // namespace qlm
