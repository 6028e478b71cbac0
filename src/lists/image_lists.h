#pragma once
// The two lists of the main window. Operations change the current entry by selecting it: the list's click,
// which fires when the selection changes, does the rest.

#include <string>
#include <vector>

#include "forms/app.h"

namespace lumidex {

// The move from the Selection list to the Display list; each ends with the first entry current. A full
// Display list takes nothing, and the Selection list keeps what was not taken.
void AddOneToDisplayList(App& app);
void AddAllToDisplayList(App& app);

// Puts paths at the end of the Display list, as many as it holds, and brings the first of them up.
void AddToDisplayList(App& app, std::vector<std::string> paths);

// Drops the selected entry and selects the one before it.
void RemoveOneFromDisplayList(App& app);
// Empties the Display list and stops a running slide show; a list that is being loaded gives way.
void ZapDisplayList(App& app);
// The same for the load itself, which goes on.
void EmptyDisplayList(App& app);

// Errors are ignored statement by statement; a full list has room for its own entries.
void MoveDisplayEntryUp(App& app);
void MoveDisplayEntryDown(App& app);

// The neighbours of the current entry, around the ends. Without an entry, and in a list that is being read,
// they do nothing.
void NextImage(App& app);
void PreviousImage(App& app);

// Answers of the lists: a change of the Display list's selection, a double click or Enter in it, a click in
// the Selection list. Their errors end them quietly.
void DisplayListClick(App& app);
void ActivateDisplayEntry(App& app);
void PreviewSelectionEntry(App& app);

// Brings the current entry up, or says that its file is not there.
void ShowDisplayEntry(App& app, std::string path);

// Give the list the keyboard and ask it for room for its selected text.
void SetSelectionListExtent(App& app);
void SetDisplayListExtent(App& app);

}  // namespace lumidex
