#include "app/commands/file_commands.h"

#include "app/commands/display.h"
#include "app/edit/left_work.h"
#include "app/files/open_flow.h"
#include "app/state/program.h"
#include "app/state/refusals.h"
#include "datafiles/settings/settings_file.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace velorix {

/// Lists the cells that were not read as they stood: from here on they are numbers.
static void SayDoubts(Dialogs& dialogs, const SheetDoubts& doubts) {
  if (doubts.Count == 0) return;
  std::string list = "Doubtful cells among the restored ones: " + PlainText(doubts.Count) + "\n";
  for (const SheetDoubts::Cell& cell : doubts.First) list += "\n" + cell.Text;
  dialogs.Ask(ProgramTitle, list, {"&OK"});
}

void CloseFile(Velorix& velorix) {
  Session& session = velorix.Session;
  if (!session.CurrentFile.empty() || !session.Records.Empty())
    velorix.History.Add(session, CloseStep(session, "Close " + FileNameOf(session.CurrentFile)));
  DisplayFormCaption(velorix);
  DisplayData(velorix, true);
}

void ChangeOrientationParameters(Velorix& velorix, const OrientationChoice& choice) {
  Session& session = velorix.Session;
  if (TakeOrientationParameters(session, velorix.History, velorix.Dialogs, choice))
    CloseFile(velorix);  // shows that nothing is open
  SettingsWrite(session.Settings, session.SettingsFile);
  // Kept for agreement with published results: the caption loses the name of a file that stays
  // open, until it is next made.
  velorix.Views.SetCaption(ProgramTitle);
}

bool OfferAutosave(Velorix& velorix, const std::string& path, Autosave& own) {
  LeftWork left;
  if (const std::string why = ReadLeftWork(path, velorix.Session.Settings, left); !why.empty()) {
    ReportRefusal(velorix.Views, velorix.Log, why);
    return false;
  }
  const LeftAnswer answer = AskAboutLeft(velorix.Dialogs, left);
  if (answer == LeftAnswer::Discard) RemoveAutosave(path);
  if (answer != LeftAnswer::Restore) return false;

  const RestoredWork restored =
      RestoreLeftWork(velorix.Session, velorix.History, velorix.Host, left);
  own.Update(velorix.Session, nullptr, velorix.Views, velorix.Log);
  const bool covered = own.IsKept() || !velorix.Session.IsUnsaved();
  if (covered && restored.Refused.empty()) RemoveAutosave(path);
  DisplayFormCaption(velorix);
  SayDoubts(velorix.Dialogs, restored.Doubts);
  DisplayData(velorix, true);
  velorix.Views.ShowStatus("Restored: " + FilesText(left) + ", which is not saved yet.");
  const std::string stays = ". The cell keeps its value; " + path + " stays.";
  for (const std::string& cell : restored.Refused)
    ReportRefusal(velorix.Views, velorix.Log, cell + stays);
  return true;
}

}  // namespace velorix
