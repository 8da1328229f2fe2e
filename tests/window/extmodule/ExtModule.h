/* ExtModule.h - numbers of the texts in the test modules (also read by the resource compiler) */
#define IDS_ONLY_A 0x7A04
#define IDS_ONLY_B 0x7A05
#define IDS_A_AND_B 0x7A06
#define IDS_HOST_TOO 0x7A07
#define IDS_NOWHERE 0x7A08
#define IDS_NOT_ASCII 0x7A09
#define IDR_ONLY_A 31001
#define IDR_ONLY_B 31002
#define IDR_ONLY_C 31005
#define IDR_A_AND_B 31003
#define IDR_HOST_TOO 31004
