#pragma once

// numbers of the resources and controls; the resource compiler reads them too
#define IDD_EXPRESSION 100
#define IDC_RULE 1001
#define IDC_TERMS 1002
#define IDC_INSERT 1003
