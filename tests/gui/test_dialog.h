// Also included by the resource compiler.
#ifndef QUILLMOOR_TEST_DIALOG_H
#define QUILLMOOR_TEST_DIALOG_H

#define IDD_TEST 900
#define IDC_EDIT 901
#define IDC_COMBO 902
#define IDC_LIST 903

#endif
