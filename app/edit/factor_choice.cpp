#include "app/edit/factor_choice.h"

#include "base/rounding.h"
#include "datafiles/settings/settings_file.h"
#include "tensor/aniso_factor.h"

namespace velorix {

FactorRows FactorRowsOf(const Settings& settings) {
  FactorRows rows;
  for (int i = 1; i <= FactorSlots; ++i) {
    const int index = settings.FacIndex[i];
    rows[i] = {settings.FacName[i], FactorText(index).empty() ? -1 : index - 1};
  }
  return rows;
}

void ChangeFactors(Session& session, const FactorRows& rows) {
  for (int i = 1; i <= FactorSlots; ++i) {
    session.Settings.FacName[i] = rows[i].Name;
    session.Settings.FacIndex[i] = ToShort(rows[i].Position + 1);  // no selection: 0, the mean
  }
  SettingsWrite(session.Settings, session.SettingsFile);
}

}  // namespace velorix
