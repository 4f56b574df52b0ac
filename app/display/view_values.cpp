#include "app/display/view_values.h"

#include "tensor/derivation.h"
#include "text/numbers.h"

namespace velorix {

void DeriveView(Session& session) {
  const View view = ViewOf(session);
  int number = 0;
  try {
    for (SpecimenRecord& record : session.Records) {
      if (!record.HasCoor[static_cast<int>(session.CoorSys)] || !record.Active) continue;
      number = record.RecordNo;
      DeriveFactors(record, session.Settings.FacIndex, session.ReImMode);
      RotateRecord(record, view);
    }
  } catch (const Fault& fault) {
    throw Fault(fault.Number, "Record " + PlainText(number) + ": " + fault.what(), fault.Source);
  }
}

void RotateView(Session& session) {
  const View view = ViewOf(session);
  for (SpecimenRecord& record : session.Records)
    if (record.HasCoor[static_cast<int>(session.CoorSys)]) RotateRecord(record, view);
}

std::string IncompleteText(const Fault& reason) {
  return "Group statistics incomplete: " + CauseOf(reason).Words;
}

void ComputeGroup(const Session& session, const std::vector<float>& gaussTable,
                  const BootChoice& bootstrap, GroupStats& group) {
  try {
    GroupStatistics(session.Records, session.CoorSys, session.ReImMode, session.Settings.FacIndex,
                    gaussTable, group, bootstrap);
  } catch (const Fault& fault) {
    throw StatisticsFault(fault.Number, IncompleteText(fault));
  }
}

}  // namespace velorix
