#include "adapters/sqlite/practice_database.h"

namespace inin {

const char *const kPracticeDatabase = R"sql(
CREATE TABLE HOKENJA (cIDno TEXT PRIMARY KEY, cName TEXT, cSubAddress TEXT, iType INTEGER);
INSERT INTO HOKENJA VALUES ('01130012', '高松市', '高松', 1), ('06', '全国協会', NULL, 2);

CREATE TABLE RIYOUSHA (iKyotenCd INTEGER, iKyotenEb INTEGER, nIDNo INTEGER, cName TEXT, cNameKana TEXT, cNameRyaku TEXT,
    cTelNo TEXT, cAdress1 TEXT, cAdress2 TEXT, tBirthday DATETIME, tExpireDay DATETIME, cHokenNo TEXT, iHoken INTEGER,
    nDairiID INTEGER, nTantou INTEGER, nTantou2 INTEGER, nTantou3 INTEGER, nTantou4 INTEGER, nTantou5 INTEGER,
    iSejutsuKubun INTEGER, cSetaiName TEXT, cSetaiTelNo TEXT, cSetaiAdress1 TEXT, tHatsubyou TEXT,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo));
INSERT INTO RIYOUSHA VALUES
 (1,1,1,'山田太郎','ﾔﾏﾀﾞ ﾀﾛｳ','中央','087-111-1111','高松市番町1','','1936-02-29 00:00:00',NULL,'01130012',1,2,5,NULL,NULL,NULL,NULL,0,'山田一郎','087-1','高松市',' 2023/1/1'),
 (1,1,2,'鈴木花子','すずき はなこ',NULL,NULL,'高松市天神前2',NULL,'1940-05-01','2024-03-31 00:00:00','０１１３００１２ ',1,2,3,5,NULL,NULL,NULL,1,NULL,NULL,NULL,NULL),
 (1,1,3,'佐藤次郎','サトウ ジロウ','','','','',NULL,NULL,'99999999',1,2,5,NULL,NULL,NULL,NULL,0,'','','',NULL),
 (1,2,1,'別拠点','ベツ','','','','',NULL,NULL,'01130012',1,2,5,NULL,NULL,NULL,NULL,0,'','','',NULL),
 (1,1,5,'田中三郎','ﾀﾅｶ ｻﾌﾞﾛｳ','','','','',NULL,NULL,'06',2,99,4,NULL,NULL,NULL,5,0,'','','',NULL),
 (1,1,6,'やまた四郎','やまた','','','','',NULL,'2024-05-20','06',2,2,4,NULL,NULL,NULL,NULL,0,'','','',NULL);

CREATE TABLE RIYOUSHA_SUB (iKyotenCd INTEGER, iKyotenEb INTEGER, nIDNo INTEGER, iDantaiUmu INTEGER,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo));
INSERT INTO RIYOUSHA_SUB VALUES (1,1,2,1), (1,1,1,NULL), (1,1,5,0);

CREATE TABLE SCHEDULE (iKyotenCd INTEGER, iKyotenEb INTEGER, nIDRiyoushaNo INTEGER, nIDStaffNo INTEGER, nDate INTEGER);
CREATE INDEX SCHEDULE_PATIENT ON SCHEDULE (iKyotenCd, iKyotenEb, nIDRiyoushaNo, nDate);
INSERT INTO SCHEDULE VALUES (1,1,1,5,20240510), (1,1,1,7,20240520), (1,1,2,5,20240531), (1,1,2,5,20240604),
    (1,1,3,5,20240531), (1,2,1,5,20240531), (1,1,6,4,20240531), (1,1,6,4,20240500), (1,1,5,4,20240430);

CREATE TABLE JISSEKI (iKyotenCd INTEGER, iKyotenEb INTEGER, nRiyoushaIDNo INTEGER, nStaffIDNo INTEGER,
    tServicyDayStart DATETIME);
CREATE INDEX JISSEKI_PATIENT ON JISSEKI (iKyotenCd, iKyotenEb, nRiyoushaIDNo, tServicyDayStart);
INSERT INTO JISSEKI VALUES (1,1,1,5,'2024-05-10 09:00:00'), (1,1,1,7,'2024-05-31 23:59:59'), (1,1,1,7,'2024-06-01 00:00:00'),
    (1,1,2,5,'2024-05-01'), (1,1,6,4,'2024-05-31 00:00:00'), (1,1,6,4,'2024-05-31 00:00:00'), (1,1,5,4,'2024-04-30 09:00:00');

CREATE TABLE CORP (iKyotenCd INTEGER, iKyotenEb INTEGER, cAddress1 TEXT, cAddress2 TEXT, cAddressKana TEXT, cDaihyo TEXT,
    cDaihyoKana TEXT, cFaxNo TEXT, cKinyuName TEXT, cKinyuSiten TEXT, cKozaBangou TEXT, cKozaKana TEXT, cKozaMeigi1 TEXT,
    cKozaMeigi2 TEXT, cShamei1 TEXT, cShamei2 TEXT, cShameiKana1 TEXT, cShameiKana2 TEXT, cTelNo TEXT, cYubinNo TEXT,
    iKinSiten INTEGER, iKinSyubetsu INTEGER, iKozaKubun INTEGER, iKozaType INTEGER, iType INTEGER, nIDNo INTEGER,
    nLat INTEGER, nLon INTEGER, cPcName TEXT, tUpDateTime DATETIME, cKinyuNo TEXT, cKinyuSitenNo TEXT, cJigyousyoNo TEXT,
    cJigyousyoNo2 TEXT, cJigyouReceiptName TEXT, cMailDestination TEXT, cMailDestinationZipNo TEXT,
    cHokenTourokuKubetsu TEXT, cPersonalNumberCorp TEXT, iKyotenToshiNo INTEGER, cKokuhoTourokuNo TEXT, cEmail TEXT,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo));
INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo, iType, cShamei1, cAddress1, cDaihyo, cTelNo, cKinyuName, cKinyuSiten,
    iKozaType, cKozaBangou, cKozaMeigi1, iKinSyubetsu, iKinSiten, tUpDateTime) VALUES
 (1,1,0,0,'本社','高松市1','代表','087-0','百十四','本店',1,'1234567','ホンシャ',1,1,'2024-04-01 10:20:30'),
 (1,1,2,1,'代理人','高松市2','代理','087-2','中国','高松',2,'7654321','ダイリ',2,2,NULL),
 (1,1,9,3,'団体','高松市9','団長','087-9','郵便','高松',1,'9999999','ダンタイ',4,5,NULL),
 (1,2,0,0,'別の本社',NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL);

CREATE TABLE STAFF (iKyotenCd INTEGER, iKyotenEb INTEGER, cAdress1 TEXT, cAdress2 TEXT, cFaxNo TEXT, cKaiNo TEXT, cKaiNo2 TEXT,
    cKaiNo3 TEXT, cMobNo TEXT, cName TEXT, cNameKana TEXT, cNameRyaku TEXT, cRken TEXT, cRno TEXT, cTelNo TEXT, cYubinNo TEXT,
    iChusiFlg INTEGER, iSexKubun INTEGER, iShikakuKubun INTEGER, iSyokushuKubun INTEGER, iYaku INTEGER, nIDNo INTEGER,
    cEmail TEXT, iTecAbi INTEGER, iSpeechAbi INTEGER, cPhysical TEXT, iClaimRate INTEGER, cSikaku TEXT, cTourokuNo TEXT,
    cSmileCd TEXT, tBirthday DATETIME, tKousinDay DATETIME, tNyusyaDay DATETIME, tKisanDay DATETIME, tRday DATETIME,
    tTourokuDay DATETIME, cPcName TEXT, tUpDateTime DATETIME, cTourokuNo2 TEXT, iVehicleType INTEGER, cVehicleNumber TEXT,
    cVehicleComment TEXT, cEmployeeNumber TEXT, iLookAllRiyousya INTEGER, iWebLicense INTEGER, iLookCharge INTEGER,
    iStaffHokenTouroku INTEGER, cShikaiNo TEXT, cShikaiNo_Josei TEXT, iContractType INTEGER, nLat INTEGER, nLon INTEGER,
    cIninTourokuNo TEXT, iIninTourokuChk INTEGER, iKanriSekininFlg INTEGER,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo));
INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName, cNameKana, iChusiFlg, tBirthday, cNameRyaku) VALUES
 (1,1,3,'施術三子','せじゅつ みつこ',0,'1980-05-01 00:00:00','三子'),
 (1,1,4,'施術四郎','ｾｼﾞｭﾂ ｼﾛｳ',NULL,NULL,NULL),
 (1,1,5,'中止五郎','チュウシ ゴロウ',1,NULL,NULL),
 (1,2,3,'別拠点の者','ベツ',0,NULL,NULL);

CREATE TABLE KYOTEN (iKyotenCd INTEGER, iKyotenEb INTEGER, cKyotenName TEXT);
INSERT INTO KYOTEN VALUES (1,1,'高松'), (1,2,'丸亀');

CREATE TABLE HOKEN (iKyotenCd INTEGER, iKyotenEb INTEGER, cName TEXT, cRyaku TEXT, cType TEXT, iType INTEGER);
INSERT INTO HOKEN VALUES (1,1,'国民健康保険','国','国保',2), (1,1,'協会けんぽ','協','社保',1), (1,1,NULL,NULL,NULL,NULL);

CREATE TABLE SHINSEISYO (iKyotenCd INTEGER, iKyotenEb INTEGER, nIDNo INTEGER, cFileName TEXT, cDispName TEXT,
    iSejutuKubun INTEGER, iHokenType INTEGER, iDelFlg INTEGER, iSinseiTP INTEGER, iSoufushoTP INTEGER, iDuplexFlg INTEGER,
    iStateNo INTEGER, iRiyouHokenKbn INTEGER, tUpDateTime DATETIME, iPrintType INTEGER, iKubun INTEGER,
    iKanagawaStaffPrint INTEGER, iJoseiFutanKiriage INTEGER, iTekiyouStaff INTEGER);
INSERT INTO SHINSEISYO (iKyotenCd, iKyotenEb, nIDNo, cFileName, iDelFlg, iStateNo, iPrintType) VALUES
 (0,0,1,'a.wfd',NULL,37,1), (0,0,2,'b.wfd',1,37,1), (1,1,1,'c.wfd',0,0,2);

CREATE TABLE SOUDAN_TANTOU (nIDNo INTEGER, iStaffKyotenCd INTEGER, iStaffKyotenEb INTEGER, nStaffIDNo INTEGER);
INSERT INTO SOUDAN_TANTOU VALUES (8,1,1,4), (9,1,2,3);

CREATE TABLE 療養費単価 (cStartDate TEXT, cEndDate TEXT, iTankaKbn INTEGER, nTankaCode INTEGER, nTanka INTEGER);
INSERT INTO 療養費単価 VALUES ('2018/10/01','2019/09/30',1,2,340), ('2018/10/01','2019/09/30',1,1,338),
    ('2019/10/01','2024/05/31',1,1,350), ('2017/01/01','2018/09/30',1,1,300);
CREATE TABLE 往療費区分 (cStartDate TEXT, cEndDate TEXT, nKingakuOuryou INTEGER, nMaxLen INTEGER);
INSERT INTO 往療費区分 VALUES ('2018/10/01','2019/09/30',2700,4000), ('2018/10/01','2019/09/30',2300,2000);

CREATE TABLE RIYOUSHA_MAP (iKyotenCd INTEGER, iKyotenEb INTEGER, nIDNo INTEGER, bAddr1 BLOB, bAddr2 BLOB, bAddr3 BLOB,
    dTimeStamp DATETIME, PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo));
)sql";

} // namespace inin
