// Ids of the commands sent by menus, keys, toolbar and buttons.
#ifndef QUILLMOOR_COMMAND_IDS_H
#define QUILLMOOR_COMMAND_IDS_H

// Commands of the windows.
#define ID_ADD_FILE                  150
#define ID_DESIGN                    151
#define ID_RUN                       152
#define ID_RUN_POWER_OFF             153
#define ID_POWER_OFF                 154
#define ID_RESULTS                   155
#define ID_TASK_TARGETS              156
#define ID_KEEP_POWER                157
#define ID_EXPLORER_SRC              158
#define ID_EXPLORER_DST              159
#define ID_RUN_SELECTED              165
#define ID_PLAN                      166
#define ID_PLAN_SELECTED             167
#define ID_HISTORY                   170
#define ID_FIRST_BACKUP              180
#define ID_SCHEDULES                 181
#define ID_CHECK_GIVEN_FILTER        182
#define ID_NEW                       57600
#define ID_OPEN                      57601
#define ID_SAVE                      57603
#define ID_SAVE_AS                   57604
#define ID_MRU_FIRST                 57616
#define ID_MRU_LAST                  57631
#define ID_REPLACE                   57641
#define ID_ABOUT                     57664
#define ID_QUIT                      57665
#define ID_HOME_PAGE                 58374
#define ID_USAGE_PAGE                58375
#define ID_SETTINGS                  58378

// Edits of the list with the keyboard focus.
#define ID_COPY                      57634
#define ID_CUT                       57635
#define ID_PASTE                     57637
#define ID_SELECT_ALL                57642
#define ID_UNDO                      57643
#define ID_REDO                      57644
#define ID_ITEM_ADD                  33000
#define ID_ITEM_EDIT                 33001
#define ID_ITEM_DUPLICATE            33002
#define ID_ITEM_DELETE               33003
#define ID_ITEM_UP                   33004
#define ID_ITEM_DOWN                 33005

// Edits of one list, independent of the focus: base id of the list plus the number of the edit above.
#define ID_TASK_EDITS                33100
#define ID_TASK_ADD                  33100
#define ID_TASK_EDIT                 33101
#define ID_TASK_DUPLICATE            33102
#define ID_TASK_DELETE               33103
#define ID_TASK_UP                   33104
#define ID_TASK_DOWN                 33105
#define ID_DST_EDITS                 33200
#define ID_DST_ADD                   33200
#define ID_DST_EDIT                  33201
#define ID_DST_DUPLICATE             33202
#define ID_DST_DELETE                33203
#define ID_DST_UP                    33204
#define ID_DST_DOWN                  33205

// View commands of the main window.
#define ID_OTHER_PANE                33300
#define ID_FULL_SCREEN               33301
#define ID_FILTER_CHECK              33302
#define ID_TARGETS                   33303

#endif  // QUILLMOOR_COMMAND_IDS_H
