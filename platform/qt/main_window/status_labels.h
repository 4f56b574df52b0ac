#pragma once

#include "app/commands/velorix.h"

class QLabel;
class QStatusBar;

namespace velorix {

/// What the status line always shows, at its right end: whose mean it is, the disregarded records,
/// "Not saved", the numbers of records, and the time of the start.
class StatusLabels {
 public:
  void Build(QStatusBar& bar);
  void ShowRecords(const Velorix& velorix, int inView);
  void ShowUnsaved(bool unsaved);
  void ShowStartTime(float seconds);

 private:
  QLabel *mean_ = nullptr, *disregarded_ = nullptr, *unsaved_ = nullptr, *counts_ = nullptr,
         *startTime_ = nullptr;
};

}  // namespace velorix
