// Ids of the string table.
#ifndef QUILLMOOR_TEXT_IDS_H
#define QUILLMOOR_TEXT_IDS_H

// Application identity and web pages.
#define IDS_COMPANY_NAME             130
#define IDS_PRODUCT_NAME             131
#define IDS_HOME_PAGE_URL            134
#define IDS_USAGE_PAGE_URL           135
#define IDS_DISPLAY_NAME             136

// Command texts; the id is also the command id.
#define IDS_CMD_ADD_FILE             150
#define IDS_CMD_RUN_POWER_OFF        153
#define IDS_CMD_POWER_OFF            154
#define IDS_CMD_KEEP_POWER           157
#define IDS_CMD_HISTORY              170
#define IDS_CMD_SCHEDULES            181

// Run states; the id is also the code of the state.
#define IDS_STATE_NOT_RUN            371
#define IDS_STATE_RUNNING            372
#define IDS_STATE_STOPPING           373
#define IDS_STATE_STOPPED            374
#define IDS_STATE_ENDED              375

// Zip password types (first id + PasswordType) and their descriptions.
#define IDS_PASSWORD_TYPE_EXEC       376
#define IDS_PASSWORD_TYPE_EXEC_ONCE  377
#define IDS_PASSWORD_TYPE_SAVE       378
#define IDS_PASSWORD_DESC_EXEC       379
#define IDS_PASSWORD_DESC_EXEC_ONCE  380
#define IDS_PASSWORD_DESC_SAVE       381

// Target list.
#define IDS_FILTER_NO_MATCH          434

// Phases of a result row.
#define IDS_PHASE_LISTING            435
#define IDS_PHASE_LISTED             436
#define IDS_PHASE_COPYING            437
#define IDS_PHASE_ARCHIVING          438
#define IDS_PHASE_CREATED            439
#define IDS_PHASE_SKIPPED            440

// Error texts of the phases: id of the phase + 6. Keep both groups contiguous.
#define IDS_ERR_LISTING              441
#define IDS_ERR_TARGET_PATH          442
#define IDS_ERR_COPYING              443
#define IDS_ERR_ARCHIVING            444

// Questions before and during a run.
#define IDS_ASK_STOP_AND_QUIT        445
#define IDS_ASK_PASSWORD_DIFFERS     446
#define IDS_NO_ITEM_SELECTED         447

// Rules of the document.
#define IDS_ID_EMPTY                 449
#define IDS_ID_BAD_CHARACTER         450
#define IDS_ID_DUPLICATE             451
#define IDS_PATTERN_EMPTY            452
#define IDS_DST_DUPLICATE            453

// Filter lines.
#define IDS_FILTER_BAD_SIGN          454
#define IDS_FILTER_BAD_FORM          455

// Errors of commands, runs and jobs.
#define IDS_ALREADY_RUNNING          456
#define IDS_NOT_RUNNING              457
#define IDS_ALREADY_STOPPING         458
#define IDS_NO_TASKS                 459
#define IDS_FILTER_HAS_ERRORS        460
#define IDS_DST_NOT_COMMON           461
#define IDS_TARGET_IS_FILE           462
#define IDS_TARGET_IS_FOLDER         463
#define IDS_REFUSED_DURING_RUN       464
#define IDS_NO_FILES                 465
#define IDS_PASSWORD_EMPTY           466
#define IDS_PROCESS_EXIT_CODE        467
#define IDS_NO_DESTINATION           468
#define IDS_ID_NUMBERS_EXHAUSTED     469
#define IDS_REFUSED_DURING_REPLACE   470

// Other errors of the engine, the readers and the command line.
#define IDS_PATH_UNREADABLE          471
#define IDS_LIST_FOLDER_FAILED       472
#define IDS_NAME_ONLY_DOTS           473
#define IDS_NAME_IS_DEVICE           474
#define IDS_NAME_HAS_COLON           475
#define IDS_ARCHIVE_PATH_HAS_BLANK   476
#define IDS_SETTINGS_PARTLY_READ     477
#define IDS_ARCHIVE_INCOMPLETE       480
#define IDS_DOCTYPE_REFUSED          481
#define IDS_READ_BACK_FAILED         482
#define IDS_FOLDERS_NOT_LISTED       483
#define IDS_READ_FILE_FAILED         484
#define IDS_DELETE_FAILED            485
#define IDS_COPY_INCOMPLETE          486
#define IDS_TASK_NOT_FOUND           487
#define IDS_PASSWORD_NEEDED          488
#define IDS_FILE_TOO_LARGE           489
#define IDS_SETTINGS_LOCATION_FAILED 490
#define IDS_RUN_SUMMARY              491
#define IDS_COUNTS                   492
#define IDS_WARNING                  493
#define IDS_DOCUMENT_KIND            494
#define IDS_TOO_MANY_DSTS            495
#define IDS_PASSWORD_BAD_CHARACTER   496
#define IDS_PASSWORD_NOT_UTF8        1322
#define IDS_PATH_NOT_RESPONDING      497
#define IDS_FILTER_TEXT_FILES        498
#define IDS_ASK_NO_ARCHIVER          499
#define IDS_SOURCE_BECAME_LINK       1250

// Reasons why a regular expression is refused.
#define IDS_REGEX_BRACKETS           521
#define IDS_REGEX_BRACES             522
#define IDS_REGEX_ESCAPE             523
#define IDS_REGEX_BACK_REFERENCE     524
#define IDS_REGEX_REPEAT             525
#define IDS_REGEX_CLASS              526
#define IDS_REGEX_EXTENSION          527

// List columns: 500-520; destination types: 540-543.
#define IDS_COL_TASK_ID              500
#define IDS_COL_TASK_PATH            501
#define IDS_COL_TASK_FILTER          502
#define IDS_COL_TASK_DSTS            503
#define IDS_COL_TASK_STATE           504
#define IDS_COL_DST_NUMBER           505
#define IDS_COL_DST_FOLDER           506
#define IDS_COL_DST_TYPE             507
#define IDS_COL_DST_PATTERN          508
#define IDS_COL_RESULT_PATH          509
#define IDS_COL_RESULT_TIME          510
#define IDS_COL_RESULT_MESSAGE       511
#define IDS_COL_TARGET_PATH          512
#define IDS_COL_TARGET_TIME          513
#define IDS_COL_TARGET_SIZE          514
#define IDS_COL_TARGET_ATTRIBUTES    515
#define IDS_COL_FILTER_ITEM          516
#define IDS_COL_FILTER_LINE          517
#define IDS_COL_FILTER_SIGN          518
#define IDS_COL_FILTER_EXPRESSION    519
#define IDS_COL_FILTER_ERROR         520

// Destination types: first id + DstType.
#define IDS_DST_TYPE_FOLDER          540
#define IDS_DST_TYPE_ZIP             541
#define IDS_DST_TYPE_PASSWORD_ZIP    542
#define IDS_DST_TYPE_AES_256_ZIP     543

// Texts of the task dialog and the destination dialog: 560-599.
#define IDS_BROWSE_SOURCE            560
#define IDS_BROWSE_DST               561
#define IDS_FILTER_FILES             562
#define IDS_TASK_NO_SOURCE           564
#define IDS_TASK_DST_WITHIN_SOURCE   565
#define IDS_SAMPLE_TASK_ID           566
#define IDS_NAME_BAD_CHARACTER       567
#define IDS_DST_NOTE_PASSWORD        568
#define IDS_DST_NOTE_AES             569
#define IDS_DST_NOTE_ZIPCRYPTO       570
#define IDS_DST_NO_ARCHIVER          571
#define IDS_SPACE_IN_ARCHIVE         573
#define IDS_SPACE_IN_FOLDER          574
#define IDS_SPACE_IN_NAME            575
#define IDS_SPACE_IN_TEMPORARY       576
#define IDS_TOKEN_ID                 580
#define IDS_TOKEN_YEAR               581
#define IDS_TOKEN_YEAR_2             582
#define IDS_TOKEN_MONTH              583
#define IDS_TOKEN_MONTH_1            584
#define IDS_TOKEN_DAY                585
#define IDS_TOKEN_DAY_1              586
#define IDS_TOKEN_HOUR               587
#define IDS_TOKEN_HOUR_1             588
#define IDS_TOKEN_MINUTE             589
#define IDS_TOKEN_MINUTE_1           590
#define IDS_TOKEN_SECOND             591
#define IDS_TOKEN_SECOND_1           592

// Texts of filter check, targets and results: 600-639.
#define IDS_FILTER_EXCLUDED_BY       600
#define IDS_FILTER_INCLUDED_BY       601
#define IDS_FILTER_LINE_COUNTS       602
#define IDS_TARGET_NEWEST            603
#define IDS_TARGET_NO_NEWEST         604
#define IDS_TARGET_NOT_FOUND         605
#define IDS_TARGET_UNLISTED          606
#define IDS_TARGET_NO_BACKUP         607
#define IDS_CSV_KIND                 608

// Texts for the end of the session and of the program: 544-559.
#define IDS_SHUTDOWN_REASON_EDITS    544
#define IDS_WAIT_ARCHIVE             545
#define IDS_WAIT_JOB                 546
#define IDS_WAIT_RUN                 547
#define IDS_UNLISTED_REMARK          548
#define IDS_UNLISTED_COUNT           549

// Texts of password, replace, about and settings: 640-679.
#define IDS_REPLACE_COUNTS           640
#define IDS_ABOUT_VERSION            641
#define IDS_ABOUT_LIBRARIES          1230
#define IDS_DIAGNOSTICS              1231
#define IDS_GENERAL_PAGE             642
#define IDS_ARCHIVER_FILES           643
#define IDS_PROGRAM_FILES            644
#define IDS_ARCHIVER_NOT_FOUND       645
#define IDS_ARCHIVER_UNKNOWN         646

// Texts of the main window: 680-799.
#define IDS_UNTITLED                 680
#define IDS_ITEM_COUNTS              681
#define IDS_ASK_DELETE_DSTS          682
#define IDS_SHUTDOWN_REASON          683
#define IDS_PANE_TASKS               684
#define IDS_PANE_DSTS                685
#define IDS_EMPTY_HINT               686
#define IDS_FIRST_TASK               687
#define IDS_EMPTY_DSTS_HINT          688
#define IDS_FIRST_DST                689
#define IDS_BUTTON_ADD               690
#define IDS_BUTTON_EDIT              691
#define IDS_BUTTON_DUPLICATE         692
#define IDS_BUTTON_DELETE            693
#define IDS_BUTTON_UP                694
#define IDS_BUTTON_DOWN              695
#define IDS_BUTTON_TEST              696
#define IDS_BUTTON_OPEN_SOURCE       697
#define IDS_BUTTON_OPEN_DESTINATION  698
#define IDS_TOOL_NEW                 700
#define IDS_TOOL_OPEN                701
#define IDS_TOOL_SAVE                702
#define IDS_TOOL_RUN                 703
#define IDS_TOOL_STOP                704
#define IDS_TOOL_TEST                705
#define IDS_TOOL_RESULTS             706
#define IDS_TOOL_REPLACE             707
#define IDS_TOOL_SETTINGS            708
#define IDS_MENU_RUN                 710
#define IDS_MENU_STOP                711
#define IDS_NO_TASK_SELECTED         712
#define IDS_DROP_FILTER_ON_TASK      713
#define IDS_DROP_UNKNOWN             714
#define IDS_NO_RECENT                715
#define IDS_ERROR_COUNT              716
#define IDS_POWER_OFF_PENDING        717
#define IDS_PASTE_NO_FOLDER          718
#define IDS_NO_TASKS_ADD_DST         719
#define IDS_NO_TASKS_CHECK_DST       720

// What to do about an error: 740-789.
#define IDS_REMEDY_LINE              740
#define IDS_REMEDY_NO_SOURCE         741
#define IDS_REMEDY_NO_FILES          742
#define IDS_REMEDY_FILTER            743
#define IDS_REMEDY_FILTER_SIGN       744
#define IDS_REMEDY_FILTER_FORM       745
#define IDS_REMEDY_REGEX             746
#define IDS_REMEDY_REGEX_COMPLEX     747
#define IDS_REMEDY_TARGET_TAKEN      748
#define IDS_REMEDY_NAME              749
#define IDS_REMEDY_ARCHIVER          750
#define IDS_REMEDY_ARCHIVER_FAILED   751
#define IDS_REMEDY_INCOMPLETE        752
#define IDS_REMEDY_TEMPORARY         753
#define IDS_REMEDY_BECAME_LINK       1251
#define IDS_REMEDY_STOPPED           754
#define IDS_REMEDY_INTERNAL          755
#define IDS_REMEDY_READ              756
#define IDS_REMEDY_WRITE             757
#define IDS_REMEDY_NOT_FOUND         758
#define IDS_REMEDY_ACCESS            759
#define IDS_REMEDY_IN_USE            760
#define IDS_REMEDY_WRITE_PROTECTED   761
#define IDS_REMEDY_DISK_FULL         762
#define IDS_REMEDY_FILE_TOO_LARGE    763
#define IDS_REMEDY_NOT_READY         764
#define IDS_REMEDY_NETWORK           765
#define IDS_REMEDY_LOGON             766
#define IDS_REMEDY_TOO_LONG          767
#define IDS_REMEDY_BAD_NAME          768
#define IDS_REMEDY_DISK_ERROR        769
#define IDS_REMEDY_CLOUD             770
#define IDS_REMEDY_VIRUS             771
#define IDS_REMEDY_MEMORY            772
#define IDS_REMEDY_OTHER             773

// Design: 800-899. Brushes, images, fits and corners: first id + BrushType, BkImgType, FitType, ImgOrigin.
#define IDS_DESIGN_PAGE              800
#define IDS_IMAGE_NOT_READ           801
#define IDS_IMAGE_FILES              802
#define IDS_DESCRIPTION              803
#define IDS_DESCRIPTION_TASKS        804
#define IDS_DESCRIPTION_DSTS         805
#define IDS_NEXT_ADD_TASK            806
#define IDS_NEXT_ADD_DST             807
#define IDS_NEXT_SELECT_TASK         808
#define IDS_NEXT_CHECK_DST           809
#define IDS_NEXT_RUN                 810
#define IDS_NEXT_RUNNING             811

#define IDS_BRUSH_DEFAULT            820
#define IDS_BRUSH_OS_DEFAULT         821
#define IDS_BRUSH_CUSTOM_COLOR       822
#define IDS_BRUSH_CUSTOM_BK          823
#define IDS_BRUSH_CHECK              824
#define IDS_BRUSH_DIA                825
#define IDS_BRUSH_STRIPE             826
#define IDS_BRUSH_INTERLACE          827

#define IDS_IMAGE_DEFAULT            830
#define IDS_IMAGE_NONE               831
#define IDS_IMAGE_CUSTOM             832
#define IDS_IMAGE_OK                 833
#define IDS_IMAGE_LOVELOVE           834
#define IDS_IMAGE_NO                 835
#define IDS_IMAGE_HATENA             836
#define IDS_IMAGE_MASSAKASAMA        837
#define IDS_IMAGE_ASE                838
#define IDS_IMAGE_GAKKURI            839
#define IDS_IMAGE_PEROON             840
#define IDS_IMAGE_DARUDARU           841
#define IDS_IMAGE_CHOUDAI            842
#define IDS_IMAGE_DOGEZA             843
#define IDS_IMAGE_MANEKI             844
#define IDS_IMAGE_ONEGAI             845
#define IDS_IMAGE_BUTSUYO            846
#define IDS_IMAGE_GUROKKII           847
#define IDS_IMAGE_GUTTARI            848
#define IDS_IMAGE_DOWN               849
#define IDS_IMAGE_IYAIYA             850
#define IDS_IMAGE_OMOI               851
#define IDS_IMAGE_ZUKO               852
#define IDS_IMAGE_BIRIBIRI           853
#define IDS_IMAGE_URAMIMASU          854
#define IDS_IMAGE_CHANCE             855
#define IDS_IMAGE_GETTODAZE          856

#define IDS_FIT_NONE                 860
#define IDS_FIT_WIDTH                861
#define IDS_FIT_HEIGHT               862
#define IDS_FIT_AUTO_FIT             863
#define IDS_FIT_AUTO_FILL            864

#define IDS_ORIGIN_LT                870
#define IDS_ORIGIN_LB                871
#define IDS_ORIGIN_RB                872
#define IDS_ORIGIN_RT                873

// Progress of a run, and its verdict.
#define IDS_METER_LISTING            1000
#define IDS_METER_COPYING            1001
#define IDS_METER_FLUSHING           1002
#define IDS_METER_ARCHIVING          1003
#define IDS_METER_FILES_OF           1004
#define IDS_METER_FILES              1005
#define IDS_METER_SPEED              1006
#define IDS_METER_LEFT               1007
#define IDS_METER_SECONDS            1008
#define IDS_METER_MINUTES            1009
#define IDS_METER_HOURS              1010
#define IDS_METER_HOURS_MINUTES      1011
#define IDS_METER_ELAPSED            1012
#define IDS_METER_ARCHIVE_BYTES      1013
#define IDS_METER_RUN                1014
#define IDS_METER_RUN_ABOUT          1015
#define IDS_METER_SOURCE             1016
#define IDS_VERDICT_ENDED            1017
#define IDS_VERDICT_STOPPED          1018
#define IDS_VERDICT_UNLISTED         1019
#define IDS_VERDICT_NOT_RUN          1020
#define IDS_PANEL_NAME               1021
#define IDS_PANEL_RESULTS            1022
#define IDS_PANEL_CLOSE              1023
#define IDS_TITLE_PERCENT            1024
#define IDS_METER_BYTES_OF           1025

// The longest usual texts of the run panel, which decide its height.
#define IDS_PANEL_RUN_SAMPLE         1026
#define IDS_PANEL_ROW_SAMPLE         1027

// Texts of the other commands: the explanation and, if a toolbar has the command, its name in a second line.
// The id is also the command id.
#define IDS_CMD_DESIGN               151
#define IDS_CMD_RUN                  152
#define IDS_CMD_RESULTS              155
#define IDS_CMD_TASK_TARGETS         156
#define IDS_CMD_EXPLORER_SRC         158
#define IDS_CMD_EXPLORER_DST         159
#define IDS_CMD_RUN_SELECTED         165
#define IDS_CMD_PLAN                 166
#define IDS_CMD_PLAN_SELECTED        167
#define IDS_CMD_TASK_ADD             33100
#define IDS_CMD_TASK_EDIT            33101
#define IDS_CMD_TASK_DUPLICATE       33102
#define IDS_CMD_TASK_DELETE          33103
#define IDS_CMD_TASK_UP              33104
#define IDS_CMD_TASK_DOWN            33105
#define IDS_CMD_DST_ADD              33200
#define IDS_CMD_DST_EDIT             33201
#define IDS_CMD_DST_DUPLICATE        33202
#define IDS_CMD_DST_DELETE           33203
#define IDS_CMD_DST_UP               33204
#define IDS_CMD_DST_DOWN             33205
#define IDS_CMD_OTHER_PANE           33300
#define IDS_CMD_FULL_SCREEN          33301
#define IDS_CMD_FILTER_CHECK         33302
#define IDS_CMD_NEW                  57600
#define IDS_CMD_OPEN                 57601
#define IDS_CMD_SAVE                 57603
#define IDS_CMD_SAVE_AS              57604
#define IDS_CMD_OPEN_RECENT          57616
#define IDS_CMD_COPY                 57634
#define IDS_CMD_CUT                  57635
#define IDS_CMD_PASTE                57637
#define IDS_CMD_SELECT_ALL           57642
#define IDS_CMD_UNDO                 57643
#define IDS_CMD_REDO                 57644
#define IDS_CMD_ABOUT                57664
#define IDS_CMD_QUIT                 57665
#define IDS_CMD_HOME_PAGE            58374
#define IDS_CMD_USAGE_PAGE           58375
#define IDS_CMD_SETTINGS             58378

// Names of edits, for undo and redo: 900-919.
#define IDS_EDIT_ADD_TASK            900
#define IDS_EDIT_CHANGE_TASK         901
#define IDS_EDIT_REMOVE_TASKS        902
#define IDS_EDIT_MOVE_TASKS          903
#define IDS_EDIT_DUPLICATE_TASKS     904
#define IDS_EDIT_PASTE_TASKS         905
#define IDS_EDIT_SET_FILTER          906
#define IDS_EDIT_ADD_DST             907
#define IDS_EDIT_CHANGE_DST          908
#define IDS_EDIT_REMOVE_DSTS         909
#define IDS_EDIT_MOVE_DSTS           910
#define IDS_EDIT_DUPLICATE_DSTS      911
#define IDS_EDIT_PASTE_DSTS          912
#define IDS_EDIT_SET_USE             913
#define IDS_EDIT_MERGE               914
#define IDS_EDIT_REPLACE             915

// Texts for the keyboard and for screen readers: 920-939.
#define IDS_UNDO_STEP                920
#define IDS_REDO_STEP                921
#define IDS_MENU_UNDO_STEP           922
#define IDS_MENU_REDO_STEP           923
#define IDS_MENU_UNDO                924
#define IDS_MENU_REDO                925
#define IDS_STOP_HELP                926
#define IDS_TIP_WITH_KEY             927
#define IDS_SPLITTER                 928
#define IDS_USED_BY_SOME             929
#define IDS_TEXT_COLOR               930
#define IDS_BRUSH_COLOR              931
#define IDS_TOOL_UNDO                932
#define IDS_TOOL_REDO                933

// History of runs: 940-959. Outcomes and programs: first id + RowOutcome, RunProgram.
#define IDS_OUTCOME_CREATED          940
#define IDS_OUTCOME_SKIPPED          941
#define IDS_OUTCOME_FAILED           942
#define IDS_OUTCOME_STOPPED          943
#define IDS_PROGRAM_WINDOW           944
#define IDS_PROGRAM_RUNNER           945
#define IDS_HISTORY_NOT_WRITTEN      946
#define IDS_HISTORY_DAMAGED          947
#define IDS_HISTORY_EMPTY            948
#define IDS_HISTORY_COUNTS           949
#define IDS_HISTORY_FILES            950
#define IDS_HISTORY_LAST_SUCCESS     951
#define IDS_HISTORY_NO_SUCCESS       952
#define IDS_HISTORY_OVERDUE          953
// Advice about a document, shown before a run.
#define IDS_ADVICE_NO_TIME           960
#define IDS_ADVICE_COARSE            961
#define IDS_ADVICE_REPEATS           962
#define IDS_ADVICE_SHARED_NAME       963
#define IDS_ADVICE_SAME_PATH         964
#define IDS_ADVICE_NO_ARCHIVER       965
#define IDS_ADVICE_BAD_FILTER        966
#define IDS_ADVICE_LEFTOVER          967
#define IDS_ADVICE_OTHER_FILES       968
#define IDS_ADVICE_OTHER_COUNT       969
#define IDS_ADVICE_NO_SPACE          970
#define IDS_ADVICE_MAYBE_NO_SPACE    971
#define IDS_ADVICE_ERROR             972
#define IDS_ADVICE_HINT              973

// Units.
#define IDS_UNIT_YEAR                974
#define IDS_UNIT_MONTH               975
#define IDS_UNIT_DAY                 976
#define IDS_UNIT_HOUR                977
#define IDS_SIZE_BYTES               978

// Plan: what a run would do with a destination, in the order of PlanAction.
#define IDS_PLAN_CREATE              980
#define IDS_PLAN_SKIP                981
#define IDS_PLAN_COLLISION           982
#define IDS_PLAN_UNREACHABLE         983
#define IDS_PLAN_ERROR               984
#define IDS_PLAN_NOT_REACHED         985

// Plan: lines of text.
#define IDS_PLAN_TASK                990
#define IDS_PLAN_NEWEST              991
#define IDS_PLAN_EXCLUDE             992
#define IDS_PLAN_CELL                993
#define IDS_PLAN_FREE                994
#define IDS_PLAN_SUMMARY             995

// Plan window, marks of advice, and what the user can do about it: 1030-1069.
#define IDS_PLAN_COL_DST             1030
#define IDS_PLAN_CELL_NOT_REACHED    1031
#define IDS_PLAN_CELL_TIGHT          1032
#define IDS_PLAN_CELL_NO_SPACE       1033
#define IDS_PLAN_PROGRESS            1034
#define IDS_PLAN_CHECKING            1035
#define IDS_PLAN_STOPPED             1036
#define IDS_PLAN_OUTDATED            1037
#define IDS_PLAN_COUNTS              1038
#define IDS_PLAN_CELL_TITLE          1039
#define IDS_PLAN_DETAIL_ACTION       1040
#define IDS_PLAN_DETAIL_PATH         1041
#define IDS_PLAN_DETAIL_FILES        1042
#define IDS_PLAN_DETAIL_SPACE        1043
#define IDS_PLAN_DETAIL_NEWEST       1044
#define IDS_PLAN_DETAIL_ERROR        1045
#define IDS_PLAN_DETAIL_UNUSED       1046
#define IDS_PLAN_NO_ADVICE           1047
#define IDS_COL_ADVICE_SEVERITY      1048
#define IDS_COL_ADVICE_ITEM          1049
#define IDS_COL_ADVICE_TEXT          1050
#define IDS_SEVERITY_WARNING         1051
#define IDS_SEVERITY_HINT            1052
#define IDS_ASK_RECYCLE              1053
#define IDS_RECYCLE_FAILED           1054
#define IDS_RECYCLE_NO_BIN           1055
#define IDS_RECYCLE_CHANGED          1056
#define IDS_ASK_SHARED_FILTER        1057
#define IDS_FILTER_NOT_ENCODABLE     1058
#define IDS_SELECT_TASKS             1059
#define IDS_ADVICE_NO_PASSWORD       1060

// Schedules: kinds (first id + ScheduleKind), weekdays from Sunday, errors, texts.
#define IDS_SCHEDULE_ONCE            1170
#define IDS_SCHEDULE_DAILY           1171
#define IDS_SCHEDULE_WEEKLY          1172
#define IDS_SCHEDULE_LOGON           1173
#define IDS_SCHEDULE_IDLE            1174
#define IDS_WEEKDAY_SUNDAY           1175
#define IDS_WEEKDAY_MONDAY           1176
#define IDS_WEEKDAY_TUESDAY          1177
#define IDS_WEEKDAY_WEDNESDAY        1178
#define IDS_WEEKDAY_THURSDAY         1179
#define IDS_WEEKDAY_FRIDAY           1180
#define IDS_WEEKDAY_SATURDAY         1181
#define IDS_SCHEDULE_NO_WEEKDAY      1182
#define IDS_SCHEDULE_PAST            1184
#define IDS_SCHEDULER_FAILED         1185
#define IDS_SCHEDULE_ADD_FAILED      1186
#define IDS_SCHEDULE_REMOVE_FAILED   1187
#define IDS_SCHEDULE_DESCRIPTION     1189
#define IDS_SCHEDULE_CUSTOM          1190
#define IDS_SCHEDULE_NO_DOCUMENT     1191
#define IDS_SCHEDULE_NO_RUNNER       1192
#define IDS_SCHEDULE_DISABLED        1193
#define IDS_SCHEDULE_NEVER_RUN       1194
#define IDS_SCHEDULE_LAST_DONE       1195
#define IDS_SCHEDULE_LAST_ERRORS     1196
#define IDS_SCHEDULE_LAST_FAILED     1197
#define IDS_SCHEDULE_RUNS_NOW        1198
#define IDS_SCHEDULE_ASK_MEND        1199
#define IDS_SCHEDULE_ASK_REMOVE      1200
#define IDS_SCHEDULE_PASSWORD        1201
#define IDS_SCHEDULE_SAVE_FIRST      1202
#define IDS_SCHEDULE_FAILED_RUN      1204
#define IDS_SCHEDULE_SEE_HISTORY     1203
#define IDS_SCHEDULE_NOT_RUN         1320
#define IDS_SCHEDULE_LACKS_FOLDERS   1321
#define IDS_COL_SCHEDULE             1205
#define IDS_COL_NEXT_RUN             1206
#define IDS_COL_LAST_RUN             1207
#define IDS_COL_SCHEDULE_STATE       1208
#define IDS_COL_DOCUMENT             1209
#define IDS_SCHEDULE_EXISTS_ALREADY  1210

// Results: columns, totals, search and the text about one row.
#define IDS_COL_RESULT_FILES         1070
#define IDS_COL_RESULT_BYTES         1071
#define IDS_COL_RESULT_DURATION      1072
#define IDS_COL_RESULT_SPEED         1073
#define IDS_RESULT_TOTALS            1074
#define IDS_RESULT_NO_TOTALS         1075
#define IDS_SPEED                    1076
#define IDS_SHOWN_ROWS               1077
#define IDS_SORT_MENU                1078
#define IDS_SORT_NONE                1079
#define IDS_DETAIL_SOURCE            1080
#define IDS_DETAIL_DESTINATION       1081
#define IDS_DETAIL_COUNTS            1082
#define IDS_DETAIL_TIME              1083
#define IDS_DETAIL_UNLISTED          1084
#define IDS_DETAIL_MORE              1085

// History window.
#define IDS_COL_HISTORY_START        1086
#define IDS_COL_HISTORY_DOCUMENT     1087
#define IDS_COL_HISTORY_PROGRAM      1088
#define IDS_COL_HISTORY_UNLISTED     1089
#define IDS_COL_HISTORY_OUTCOME      1090
#define IDS_COL_LAST_SUCCESS         1091
#define IDS_LAST_SUCCESS_NONE        1092
#define IDS_LAST_SUCCESS_TIP         1093
#define IDS_HISTORY_LOADING          1094
#define IDS_HISTORY_SHOWN            1095
#define IDS_HISTORY_RUN              1096

// Manual.
#define IDS_FIRST_BACKUP             1150

// Text of the replace command; the id is also the command id.
#define IDS_CMD_REPLACE              57641

// Message box captions.
#define IDS_CAPTION_ERROR            58368
#define IDS_CAPTION_CONFIRM          58369

// Power-off: message to the system, types and descriptions (first id + PowerOffType).
#define IDS_POWER_OFF_MESSAGE        58460
#define IDS_POWER_OFF_TYPE_LOGOFF    58461
#define IDS_POWER_OFF_TYPE_SLEEP     58462
#define IDS_POWER_OFF_TYPE_HIBERNATE 58463
#define IDS_POWER_OFF_TYPE_POWEROFF  58464
#define IDS_POWER_OFF_DESC_LOGOFF    58465
#define IDS_POWER_OFF_DESC_SLEEP     58466
#define IDS_POWER_OFF_DESC_HIBERNATE 58467
#define IDS_POWER_OFF_DESC_POWEROFF  58468

// File dialogs.
#define IDS_XML_FILE_KIND            58509

// Questions about unsaved changes, the settings file and missing files.
#define IDS_ASK_DISCARD              58539
#define IDS_ASK_SETTINGS_ERROR       58543
#define IDS_ASK_SETTINGS_FILE_ERROR  58544
#define IDS_ASK_SETTINGS_NEWER       58545
#define IDS_ASK_OPEN_NEAREST_FOLDER  58546

// General errors.
#define IDS_INTERNAL_ERROR           58554
#define IDS_STD_ERROR                58555
#define IDS_ATL_ERROR                58556
#define IDS_STOPPED                  58558

// Processes and threads.
#define IDS_CREATE_PROCESS_FAILED    58563
#define IDS_EXIT_CODE_FAILED         58564
#define IDS_START_THREAD_FAILED      58580

// Temporary paths, copying and moving.
#define IDS_TEMP_PATH_FAILED         58581
#define IDS_COPY_FILE_FAILED         58588
#define IDS_MOVE_FILE_FAILED         58589

// Power-off errors: first id + PowerOffType.
#define IDS_LOGOFF_FAILED            58590
#define IDS_SLEEP_FAILED             58591
#define IDS_HIBERNATE_FAILED         58592
#define IDS_POWEROFF_FAILED          58593

// Paths and the file manager.
#define IDS_PATH_NO_FILE_NAME        58614
#define IDS_PATH_EMPTY               58615
#define IDS_ID_LIST_EMPTY            58633
#define IDS_ID_LIST_TO_PATH_FAILED   58637
#define IDS_SHELL_OPEN_FAILED        58657

// Privileges.
#define IDS_OPEN_TOKEN_FAILED        58682
#define IDS_ADJUST_PRIVILEGE_FAILED  58683
#define IDS_PRIVILEGE_NOT_FOUND      58684

// Password hash.
#define IDS_CRYPT_INIT_FAILED        58685
#define IDS_HASH_INIT_FAILED         58686
#define IDS_HASH_DATA_FAILED         58687
#define IDS_HASH_SIZE_FAILED         58688
#define IDS_HASH_VALUE_FAILED        58689

// Command line.
#define IDS_TOO_MANY_ARGUMENTS       58720

// Files and folders.
#define IDS_CREATE_FILE_FAILED       58765
#define IDS_OPEN_FILE_FAILED         58767
#define IDS_WRITE_FILE_FAILED        58774
#define IDS_CREATE_FOLDER_FAILED     58776

// Names of enumerations.
#define IDS_UNKNOWN_NAME             58792

// XML layer: the DOM.
#define IDS_XML_CREATE_FAILED        58897
#define IDS_XML_ROOT_FAILED          58898
#define IDS_XML_SAVE_FAILED          58899
#define IDS_XML_SELECT_NODE_FAILED   58900
#define IDS_XML_CREATE_NODE_FAILED   58901
#define IDS_XML_APPEND_NODE_FAILED   58902
#define IDS_XML_SET_TEXT_FAILED      58904
#define IDS_XML_LOAD_FAILED          58905
#define IDS_XML_GET_TEXT_FAILED      58907
#define IDS_XML_BAD_BOOL             58908
#define IDS_XML_SELECT_NODES_FAILED  58909
#define IDS_XML_NODE_NOT_FOUND       58912
#define IDS_XML_NODES_NOT_FOUND      58913

// XML layer: values.
#define IDS_XML_UNKNOWN_ENUM         58914
#define IDS_XML_UNKNOWN_FLAG         58916
#define IDS_XML_BAD_INT              58919
#define IDS_XML_BAD_ENUM             58921
#define IDS_XML_BAD_COLOR            58922
#define IDS_XML_BAD_DWORD            58923
#define IDS_XML_BAD_VERSION          58925
#define IDS_XML_BAD_BYTES            58926

// Help of the console runner.
#define IDS_HELP_PURPOSE             1140
#define IDS_HELP_USAGE               1141
#define IDS_HELP_ARGUMENTS           1142
#define IDS_HELP_OPTIONS             1143
#define IDS_HELP_EXIT_CODES          1144
#define IDS_HELP_BAD_OPTIONS         1145
#define IDS_OPTION_HELP              1146
#define IDS_OPTION_VERSION           1147
#define IDS_OPTION_DOCUMENT          1148
#define IDS_OPTION_TASK              1149
#define IDS_OPTION_TEST              1220
#define IDS_OPTION_PLAN              1221
#define IDS_OPTION_JSON              1222
#define IDS_OPTION_QUIET             1223
#define IDS_OPTION_7Z                1224
#define IDS_OPTION_SETTINGS          1225
#define IDS_OPTION_PASSWORD_STDIN    1226
#define IDS_OPTION_HISTORY           1227
#define IDS_HELP_EXCLUDES            1228
#define IDS_OPTION_SCHEDULED         1229
#define IDS_OPTIONS_UNEXPECTED       1260
#define IDS_OPTIONS_NO_DOCUMENT      1261
#define IDS_OPTIONS_EXCLUSIVE        1262
#define IDS_OPTIONS_ONE_VALUE        1263
#define IDS_OPTIONS_NO_VALUE         1264

// Regular expressions.
#define IDS_REGEX_ERROR              59096
#define IDS_REGEX_EMPTY              59097
#define IDS_REGEX_TOO_COMPLEX        59109
#define IDS_REGEX_INVALID            59111

#endif  // QUILLMOOR_TEXT_IDS_H
