; The texts that the pages of NSIS do not bring along.

!macro TEXT NAME JAPANESE ENGLISH
  LangString ${NAME} ${LANG_JAPANESE} "${JAPANESE}"
  LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
!macroend

!insertmacro TEXT SCOPE_TITLE "インストールの対象" "Who will use ${PRODUCT}?"
!insertmacro TEXT SCOPE_SUBTITLE "${PRODUCT} を使う人を選んでください。" "Choose the users to install ${PRODUCT} for."
!insertmacro TEXT SCOPE_USER "現在のユーザーだけ(&C)（推奨）" "Only the &current user (recommended)"
!insertmacro TEXT SCOPE_USER_HINT "管理者の権限は必要ありません。" "This needs no administrator rights."
!insertmacro TEXT SCOPE_MACHINE "このコンピューターのすべてのユーザー(&A)" "&All users of this computer"
!insertmacro TEXT SCOPE_MACHINE_HINT "管理者の権限が必要です。確認の画面が表示されることがあります。" \
  "This needs administrator rights. Windows may ask for your permission."
!insertmacro TEXT NO_RIGHTS "管理者の権限がないため、すべてのユーザー用にはインストールできません。" \
  "Without administrator rights ${PRODUCT} cannot be installed for all users."
!insertmacro TEXT NO_RIGHTS_TO_UNINSTALL "管理者の権限がないため、アンインストールできません。" \
  "Without administrator rights ${PRODUCT} cannot be uninstalled."

!insertmacro TEXT IN_USE "$R0 が使用中です。$\r$\n$\r$\n\
[再試行] を押すと、${PRODUCT} のウィンドウを閉じて続行します。バックアップの実行中や、保存していない編集があるときは\
閉じません。終了を待つか、保存してから [再試行] を押してください。" \
  "$R0 is in use.$\r$\n$\r$\n\
Choose Retry to close the window of ${PRODUCT} and continue. It is not closed while a backup runs or edits are \
unsaved: wait for the backup or save your edits, then choose Retry."

!insertmacro TEXT DOCUMENT_NAME "${PRODUCT} ドキュメント" "${PRODUCT} document"
!insertmacro TEXT FILTER_NAME "${PRODUCT} フィルター" "${PRODUCT} filter"
!insertmacro TEXT CHECK_FILTER "${PRODUCT} で確認(&Q)" "Check with &${PRODUCT}"
!insertmacro TEXT MANUAL_NAME "${MANUAL_NAME_JA}" "${MANUAL_NAME_EN}"

!insertmacro TEXT SETTINGS_TITLE "設定と履歴" "Settings and history"
!insertmacro TEXT SETTINGS_SUBTITLE "設定と履歴を残すかどうかを選んでください。" "Choose whether to keep settings and history."
!insertmacro TEXT SETTINGS_REMOVE "設定と実行の履歴も削除する(&R)" "&Remove settings and the history of runs, too"
!insertmacro TEXT SETTINGS_HINT \
  "保存したパスワードも削除されます。ほかのユーザーの設定と履歴、ドキュメント (.qlmr)、バックアップは削除されません。" \
  "This includes a saved password. Settings of other users, documents (.qlmr) and backups are not removed."
!insertmacro TEXT SETTINGS_KEPT "設定と履歴は残ります。" "Your settings and history are kept."
!insertmacro TEXT SETTINGS_OTHER_ACCOUNT \
  "別のアカウントの権限で実行しているため、ここでは削除できません。$\r$\n$\r$\n\
削除するには、アンインストールのあとで、フォルダー %APPDATA%\${PUBLISHER}\${PRODUCT} を削除してください。" \
  "They cannot be removed here, because the rights are those of another account.$\r$\n$\r$\n\
To remove them, delete the folder %APPDATA%\${PUBLISHER}\${PRODUCT} after uninstalling."

!insertmacro TEXT SCHEDULES_LEFT "スケジュールが残っているかもしれません。" "Schedules may be left."
!insertmacro TEXT SCHEDULES_LEFT_REMEDY "タスク スケジューラで、不要な「${PRODUCT} - …」を削除してください。" \
  "Delete “${PRODUCT} - …” in the Task Scheduler of Windows if no longer needed."
