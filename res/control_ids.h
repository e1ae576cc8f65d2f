// Ids of icons, dialogs, menus and controls. They do not overlap with the text ids.
#ifndef QUILLMOOR_CONTROL_IDS_H
#define QUILLMOOR_CONTROL_IDS_H

// Icons: 1-9. The system shows the icon with the lowest id as the icon of the program.
#define IDI_QUILLMOOR                1
#define IDI_DOCUMENT                 2
#define IDR_TOOLS_16                 3
#define IDR_TOOLS_24                 4
#define IDR_TOOLS_32                 5
#define IDR_TOOLS_48                 6

// Labels: each is the control before the one that it names.
#define IDC_STATIC_TEXT              (-1)

// Task dialog and destination dialog: 200-219, controls 1000-1099.
#define IDD_TASK                     200
#define IDD_DST                      201
#define IDC_TASK_ID                  1000
#define IDC_TASK_PATH                1001
#define IDC_TASK_BROWSE              1002
#define IDC_TASK_FILTER              1003
#define IDC_TASK_BROWSE_FILTER       1004
#define IDC_TASK_CHECK_FILTER        1005
#define IDC_TASK_DSTS                1006
#define IDC_TASK_UP                  1007
#define IDC_TASK_DOWN                1008
#define IDC_TASK_WARNING             1009
#define IDC_TASK_OPEN_DST            1011
#define IDC_DST_FOLDER               1020
#define IDC_DST_BROWSE               1021
#define IDC_DST_TYPE                 1022
#define IDC_DST_PATTERN              1023
#define IDC_DST_TOKENS               1024
#define IDC_DST_PREVIEW              1025
#define IDC_DST_NOTE                 1026
#define IDC_DST_SETTINGS             1027
// First command of the token menu; one per token (up to 1059).
#define IDC_DST_TOKEN_FIRST          1040

// Filter check, targets and results: 220-239, controls 1100-1199.
#define IDD_FILTER                   220
#define IDD_TARGETS                  221
#define IDD_RESULTS                  222
#define IDM_FILTER                   223
#define IDM_TARGETS                  224
#define IDM_RESULTS                  225
#define IDC_LIST_COPY                1100
#define IDC_FILTER_FILE              1110
#define IDC_FILTER_LINES             1111
#define IDC_FILTER_STATUS            1112
#define IDC_FILTER_PATH              1113
#define IDC_FILTER_DECISION          1114
#define IDC_FILTER_EDIT              1115
#define IDC_FILTER_RELOAD            1116
#define IDC_FILTER_HINT              1118
#define IDC_TARGET_SOURCE            1120
#define IDC_TARGET_BACKUP            1121
#define IDC_TARGET_STATE             1122
#define IDC_TARGET_SEARCH            1123
#define IDC_TARGET_NEXT              1124
#define IDC_TARGET_FOUND             1125
#define IDC_TARGET_LIST              1126
#define IDC_TARGET_COUNTS            1127
#define IDC_TARGET_NEWEST            1128
#define IDC_TARGET_UNLISTED          1129
#define IDC_TARGET_SHOW_SOURCE       1130
#define IDC_TARGET_SHOW_BACKUP       1131
#define IDC_TARGET_GO_NEWEST         1132
#define IDC_RESULT_LIST              1140
#define IDC_RESULT_OPEN              1141
#define IDC_RESULT_TARGETS           1142
#define IDC_RESULT_SAVE              1143
#define IDC_FILTER_OPEN              1150

// Replace, password, settings and about: 240-259, controls 1200-1299.
#define IDD_REPLACE                  146
#define IDC_PASSWORD_TYPE            316
#define IDC_PASSWORD                 317
#define IDC_HIDE_PASSWORD            318
#define IDC_PASSWORD_DESC            319
#define IDD_PASSWORD                 240
#define IDD_ABOUT                    241
#define IDD_SETTINGS                 242
#define IDD_GENERAL_PAGE             243
#define IDD_CLOSING                  244
// First control + ReplaceRow; first control + bit number of the ReplaceCol.
#define IDC_REPLACE_ROW_ALL          1200
#define IDC_REPLACE_ROW_SELECTED     1201
#define IDC_REPLACE_ROW_FOCUSED      1202
#define IDC_REPLACE_TASK_ID          1203
#define IDC_REPLACE_TASK_PATH        1204
#define IDC_REPLACE_TASK_FILTER      1205
#define IDC_REPLACE_DST_FOLDER       1206
#define IDC_REPLACE_DST_PATTERN      1207
#define IDC_REPLACE_SRC              1208
#define IDC_REPLACE_DST              1209
#define IDC_REPLACE_REGEX            1210
#define IDC_REPLACE_PREVIEW          1211
#define IDC_REPLACE_COUNTS           1212
#define IDC_REPLACE_STATUS           1213
#define IDC_REPLACE_ROW_GROUP        1214
#define IDC_REPLACE_COL_GROUP        1215
#define IDC_ABOUT_ICON               1220
#define IDC_ABOUT_NAME               1221
#define IDC_ABOUT_VERSION            1222
#define IDC_ABOUT_HOME_PAGE          1223
#define IDC_ABOUT_PURPOSE            1224
#define IDC_ABOUT_LIBRARIES          1225
#define IDC_ABOUT_ARCHIVER           1226
#define IDC_SETTINGS_TAB             1230
#define IDC_APPLY                    1231
#define IDC_ARCHIVER_PATH            1240
#define IDC_ARCHIVER_BROWSE          1241
#define IDC_ARCHIVER_VERSION         1242
#define IDC_POWER_OFF_TYPE           1243
#define IDC_POWER_OFF_DESC           1244
#define IDC_HYBRID_SHUTDOWN          1245
#define IDC_INSTALL_UPDATES          1246
#define IDC_PASSWORD_GROUP           1247
#define IDC_POWER_OFF_GROUP          1248
#define IDC_PASSWORD_DSTS            1250

// Main window: 260-279, controls 1300-1399.
#define IDR_MAIN_MENU                260
#define IDR_MAIN_KEYS                261
#define IDR_TASK_MENU                262
#define IDR_DST_MENU                 263
#define IDC_CLOSING_TEXT             1260
#define IDC_CLOSING_PATH             1261
#define IDC_CLOSING_PROGRESS         1262
#define IDC_SPLITTER                 1300
#define IDC_TASK_PANE                1301
#define IDC_DST_PANE                 1302
#define IDC_TASK_LIST                1303
#define IDC_DST_LIST                 1304
#define IDC_TOOLBAR                  1305
#define IDC_STATUS_BAR               1306
#define IDC_PROGRESS                 1307
#define IDC_PANE_TITLE               1308
#define IDC_PANE_HINT                1309

// Design page: 280-299, controls 1400-1499.
#define IDD_DESIGN_PAGE              280
#define IDC_PANE_DESCRIPTION         1400
#define IDC_TEXT_COLOR               1401
#define IDC_BRUSH_TYPE               1402
#define IDC_BRUSH_COLOR              1403
#define IDC_BRUSH_PATH               1404
#define IDC_BRUSH_BROWSE             1405
#define IDC_IMAGE_TYPE               1406
#define IDC_IMAGE_PATH               1407
#define IDC_IMAGE_BROWSE             1408
#define IDC_IMAGE_FIT                1409
#define IDC_IMAGE_ORIGIN             1410
#define IDC_SHOW_DESCRIPTION         1411
#define IDC_TEXT_GROUP               1412
#define IDC_BRUSH_GROUP              1413
#define IDC_IMAGE_GROUP              1414

// Run panel: controls 1500-1519.
#define IDC_RUN_PANEL                1500
#define IDC_RUN_PANEL_ROW            1501
#define IDC_RUN_PANEL_FILE           1502
#define IDC_RUN_PANEL_RUN            1503
#define IDC_RUN_PANEL_PROGRESS       1504
#define IDC_RUN_PANEL_CLOSE          1505

// Plan window: 1520-1549.
#define IDD_PLAN                     1520
#define IDM_PLAN                     1521
#define IDC_PLAN_MATRIX              1522
#define IDC_PLAN_STATE               1523
#define IDC_PLAN_SUMMARY             1524
#define IDC_PLAN_DETAIL              1525
#define IDC_PLAN_TARGETS             1526
#define IDC_PLAN_SHOW_NEWEST         1527
#define IDC_PLAN_EXCLUDE             1528
#define IDC_PLAN_ADVICE              1529
#define IDC_PLAN_RECYCLE             1530
#define IDC_PLAN_AGAIN               1531
#define IDC_PLAN_STOP                1532

// History, and more controls of the results: 1550-1579.
#define IDD_HISTORY                  1550
#define IDM_HISTORY                  1551
#define IDC_RESULT_SEARCH            1552
#define IDC_RESULT_ERRORS            1553
#define IDC_RESULT_SHOWN             1554
#define IDC_RESULT_TOTALS            1555
#define IDC_RESULT_DETAIL            1556
#define IDC_HISTORY_BY_RUN           1557
#define IDC_HISTORY_BY_TASK          1558
#define IDC_HISTORY_THIS_DOCUMENT    1559
#define IDC_HISTORY_PROBLEMS         1560
#define IDC_HISTORY_RUNS             1561
#define IDC_HISTORY_ROWS             1562
#define IDC_HISTORY_TASKS            1563
#define IDC_HISTORY_DETAIL           1564
#define IDC_HISTORY_STATUS           1565
#define IDC_HISTORY_OPEN             1566
#define IDC_HISTORY_REFRESH          1567
// Commands of the sort menu: none, then one per column (up to 1579).
#define IDC_SORT_FIRST               1568
#define IDC_SORT_LAST                1579

// Schedules.
#define IDD_SCHEDULES                1590
#define IDD_SCHEDULE_EDIT            1591
#define IDM_SCHEDULES                1592
#define IDC_SCHEDULE_ALL             1593
#define IDC_SCHEDULE_LIST            1594
#define IDC_SCHEDULE_NOTE            1595
#define IDC_SCHEDULE_ADD             1596
#define IDC_SCHEDULE_EDIT            1597
#define IDC_SCHEDULE_REMOVE          1598
#define IDC_SCHEDULE_MEND            1599
#define IDC_SCHEDULE_KIND            1600
#define IDC_SCHEDULE_DATE            1601
#define IDC_SCHEDULE_TIME            1602
#define IDC_SCHEDULE_SUNDAY          1603
#define IDC_SCHEDULE_MONDAY          1604
#define IDC_SCHEDULE_TUESDAY         1605
#define IDC_SCHEDULE_WEDNESDAY       1606
#define IDC_SCHEDULE_THURSDAY        1607
#define IDC_SCHEDULE_FRIDAY          1608
#define IDC_SCHEDULE_SATURDAY        1609
#define IDC_SCHEDULE_MISSED          1610
#define IDC_SCHEDULE_BATTERY         1611
#define IDC_SCHEDULE_DAYS_GROUP      1612

// Links to the manual: 1613.
#define IDC_RESULT_EXPLAIN           1613

// More controls of the about box: 1614.
#define IDC_ABOUT_COPY               1614

// The menu of the findings of a plan.
#define IDM_PLAN_ADVICE              1650

#endif  // QUILLMOOR_CONTROL_IDS_H
