-- Tables of a demo site, in SQLite's spelling. A real site's server holds more columns; these are the ones that the
-- program names. Dates are DATETIME and hold ISO text 'YYYY-MM-DD HH:MM:SS', so that the text order is the time order.
-- Nearly every table carries the branch (iKyotenCd, iKyotenEb); nIDNo numbers a row within one branch.

-- The patients. nTantou to nTantou10 are numbers of STAFF, nDairiID the number of the agent in CORP, cHokenNo the
-- insurer's cIDno.
CREATE TABLE RIYOUSHA (
    iKyotenCd INTEGER NOT NULL, iKyotenEb INTEGER NOT NULL, nIDNo INTEGER NOT NULL,
    -- the patient; tExpireDay is the day on which the treatment ended, NULL while it goes on
    cName TEXT, cNameRyaku TEXT, cNameKana TEXT, iSex INTEGER, tExpireDay DATETIME,
    -- insurance numbers; cHokenNo finds the insurer
    cCityNo TEXT, cJukyuNo TEXT, cHokenKigouNo TEXT, cHokenKigouNo2 TEXT, cHokenNo TEXT, cHokenNo2 TEXT,
    cFutanNo TEXT, tBirthday DATETIME,
    -- the patient's home
    cYubinNo TEXT, cAdress1 TEXT, cAdress2 TEXT, cAddressKana TEXT, cTelNo TEXT, cFaxNo TEXT, cMobNo TEXT,
    -- the householder
    cSetaiName TEXT, cSetaiKana TEXT, iSetaiSex INTEGER, cSetaiYubinNo TEXT, cSetaiAdress1 TEXT, cSetaiAdress2 TEXT,
    cSetaiAddKana TEXT, cSetaiTelNo TEXT, cSetaiFaxNo TEXT, cSetaiMobNo TEXT, cSetaiTsuzuki TEXT,
    tSetaiBirthday DATETIME,
    -- the place on the map and the distance of a visit with its corrections
    iTikuNo INTEGER, nHokui INTEGER, nToukei INTEGER, iHoseUmu INTEGER, nLenFix INTEGER, nLenInp INTEGER,
    nLenAdd INTEGER, nHoseLen INTEGER, iHoseCol INTEGER, iHoseCut INTEGER, iVisitFlg INTEGER, iOuryoCalType INTEGER,
    -- staff in charge, illness, shares
    nTantou INTEGER, nTantou2 INTEGER, nTantou3 INTEGER, nTantou4 INTEGER, nTantou5 INTEGER,
    cByoumei TEXT, iKaigoLevel INTEGER, iFutanritsu INTEGER, iV INTEGER, iSys INTEGER,
    -- parts of the body under treatment and the kinds of massage treatment, with their periods
    iSejutuBui1 INTEGER, iSejutuBui2 INTEGER, iSejutuBui3 INTEGER, iSejutuBui4 INTEGER, iSejutuBui5 INTEGER,
    iHenke INTEGER, iOnan INTEGER, iDenki INTEGER,
    iSejutuBui11 INTEGER, iSejutuBui12 INTEGER, iSejutuBui13 INTEGER, iSejutuBui14 INTEGER, iSejutuBui15 INTEGER,
    iOnan1 INTEGER, iDenki1 INTEGER,
    tHenkeSday DATETIME, tHenKeEday DATETIME, tOnanSday DATETIME, tOnanEday DATETIME,
    tDenkiSday DATETIME, tDenkiEday DATETIME,
    -- course of the illness; tHatsubyou and tSyoryoDay are texts in spite of their names
    iPtype INTEGER, iGyoumuUmu INTEGER, cGeninKeika TEXT, tHatsubyou TEXT, tSyoryoDay TEXT, tSyosinDay DATETIME,
    tStartDay DATETIME, tKHkigen DATETIME,
    cHTno TEXT, tHTStartDay DATETIME, cHTRiyuu TEXT, cHTIryoName TEXT, cHTIryoYubin TEXT, cHTIryoAdd TEXT,
    -- two doctors' consents
    cDouiIsiName1 TEXT, cDouiIsiKikan1 TEXT, cDouiIsiAdd1 TEXT, cDouiByoumei1 TEXT,
    tDouiDay1 DATETIME, tDouiKaryoS1 DATETIME, tDouiKaryoE1 DATETIME,
    cDouiIsiName2 TEXT, cDouiIsiKikan2 TEXT, cDouiIsiAdd2 TEXT, cDouiByoumei2 TEXT,
    tDouiDay2 DATETIME, tDouiKaryoS2 DATETIME, tDouiKaryoE2 DATETIME,
    -- the certifier, the agent, the applicant
    cSyoumeiName TEXT, cSyoumeiYubin TEXT, cSyoumeiAdd TEXT, cSyoumeiTel TEXT, tSyoumeiDay DATETIME,
    nDairiID INTEGER,
    cSinseiName TEXT, cSinseiYubin TEXT, cSinseiAdd TEXT, cSinseiTel TEXT, tSinseiDay DATETIME, cSinseiAtena TEXT,
    iSeiKyuKubun INTEGER, iTenki INTEGER, cTekiyou TEXT, cBikou TEXT, iHoken INTEGER,
    -- the patient's own bank account
    iKinSyubetsu INTEGER, cKinName TEXT, iKinSiten INTEGER, cKinSiten TEXT, iKozaSyubetsu INTEGER, cKozaNo TEXT,
    cKozaName TEXT, cKozaKana TEXT, iKozaKubun INTEGER, cComment TEXT, cYotei TEXT, iPcnt INTEGER,
    -- insured person's name, disability certificate
    cHokenJname TEXT, cHokenJname2 TEXT, iSyogai INTEGER, cSyogaiNo TEXT, cSyogaiJu TEXT, cSyogaiFname TEXT,
    iSejutsuKubun INTEGER,
    -- acupuncture and moxibustion, with their periods
    nHKSyobyouCd INTEGER, cHKSyobyouName TEXT, iHKSyokaiHiyo INTEGER, iHKHariUmu INTEGER, iHKKyuUmu INTEGER,
    iHKDekiUmu INTEGER,
    tHKHariSday DATETIME, tHKHariEday DATETIME, tHKKyuSday DATETIME, tHKKyuEday DATETIME,
    tHKDenkiSday DATETIME, tHKDenkiEday DATETIME,
    iHKHari1Umu INTEGER, iHKKyu1Umu INTEGER, iHKDeki1Umu INTEGER,
    -- second periods
    tHenkeSday2 DATETIME, tHenKeEday2 DATETIME, tOnanSday2 DATETIME, tOnanEday2 DATETIME,
    tDenkiSday2 DATETIME, tDenkiEday2 DATETIME,
    tHKHariSday2 DATETIME, tHKHariEday2 DATETIME, tHKKyuSday2 DATETIME, tHKKyuEday2 DATETIME,
    tHKDenkiSday2 DATETIME, tHKDenkiEday2 DATETIME,
    -- renewal of the consent, permits, rooms, shares of the patient, further staff
    tDouishoSaishutokuFrom DATETIME, tDouishoSaishutokuTo DATETIME, iOuryouKyoka INTEGER, nRoomNo INTEGER,
    iRoomAnbunUmu INTEGER, cHokenJSubAddress TEXT, cSyogaiFSubAddress TEXT, iJikofutanKubun INTEGER,
    nJikofutanTanka INTEGER, nTantou6 INTEGER, nTantou7 INTEGER, nTantou8 INTEGER, nTantou9 INTEGER,
    nTantou10 INTEGER, cFMCode INTEGER,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo)
);

-- The insurers, shared by all branches. A number that came twice would double a patient's letters.
CREATE TABLE HOKENJA (
    cIDno TEXT NOT NULL PRIMARY KEY, cName TEXT, cSubAddress TEXT, iType INTEGER
);

-- Planned visits; nDate is year * 10000 + month * 100 + day. A patient may have two on one day.
CREATE TABLE SCHEDULE (
    iKyotenCd INTEGER NOT NULL, iKyotenEb INTEGER NOT NULL, nIDRiyoushaNo INTEGER, nIDStaffNo INTEGER, nDate INTEGER
);
-- The last planned visit of a patient within a month: one step to the end of the range.
CREATE INDEX SCHEDULE_PATIENT ON SCHEDULE (iKyotenCd, iKyotenEb, nIDRiyoushaNo, nDate);
-- All planned visits of a day.
CREATE INDEX SCHEDULE_DAY ON SCHEDULE (iKyotenCd, iKyotenEb, nDate);

-- Actual visits; tServicyDayStart is the moment at which the visit began.
CREATE TABLE JISSEKI (
    iKyotenCd INTEGER NOT NULL, iKyotenEb INTEGER NOT NULL, nRiyoushaIDNo INTEGER, nStaffIDNo INTEGER,
    tServicyDayStart DATETIME
);
-- As for the planned visits: the last one of a patient, and all of a day.
CREATE INDEX JISSEKI_PATIENT ON JISSEKI (iKyotenCd, iKyotenEb, nRiyoushaIDNo, tServicyDayStart);
CREATE INDEX JISSEKI_DAY ON JISSEKI (iKyotenCd, iKyotenEb, tServicyDayStart);

-- Side table of a patient; iDantaiUmu 1 marks group billing. Its key is the way from the patient.
CREATE TABLE RIYOUSHA_SUB (
    iKyotenCd INTEGER NOT NULL, iKyotenEb INTEGER NOT NULL, nIDNo INTEGER NOT NULL, iDantaiUmu INTEGER,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo)
);

-- The companies of a branch; iType 0 is the head office, 1 and 2 are agents, 3 is the group-billing company.
CREATE TABLE CORP (
    iKyotenCd INTEGER NOT NULL, iKyotenEb INTEGER NOT NULL,
    cAddress1 TEXT, cAddress2 TEXT, cAddressKana TEXT, cDaihyo TEXT, cDaihyoKana TEXT, cFaxNo TEXT,
    cKinyuName TEXT, cKinyuSiten TEXT, cKozaBangou TEXT, cKozaKana TEXT, cKozaMeigi1 TEXT, cKozaMeigi2 TEXT,
    cShamei1 TEXT, cShamei2 TEXT, cShameiKana1 TEXT, cShameiKana2 TEXT, cTelNo TEXT, cYubinNo TEXT,
    iKinSiten INTEGER, iKinSyubetsu INTEGER, iKozaKubun INTEGER, iKozaType INTEGER, iType INTEGER,
    nIDNo INTEGER NOT NULL, nLat INTEGER, nLon INTEGER, cPcName TEXT, tUpDateTime DATETIME,
    cKinyuNo TEXT, cKinyuSitenNo TEXT, cJigyousyoNo TEXT, cJigyousyoNo2 TEXT, cJigyouReceiptName TEXT,
    cMailDestination TEXT, cMailDestinationZipNo TEXT, cHokenTourokuKubetsu TEXT, cPersonalNumberCorp TEXT,
    iKyotenToshiNo INTEGER, cKokuhoTourokuNo TEXT, cEmail TEXT,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo)
);
-- Head office and group-billing company are looked up by kind, once for each letter.
CREATE INDEX CORP_TYPE ON CORP (iKyotenCd, iKyotenEb, iType);

-- Practitioners and other employees; iChusiFlg 0 or NULL is active. Lists go by branch, in order of nIDNo: the key.
CREATE TABLE STAFF (
    iKyotenCd INTEGER NOT NULL, iKyotenEb INTEGER NOT NULL,
    cAdress1 TEXT, cAdress2 TEXT, cFaxNo TEXT, cKaiNo TEXT, cKaiNo2 TEXT, cKaiNo3 TEXT, cMobNo TEXT,
    cName TEXT, cNameKana TEXT, cNameRyaku TEXT, cRken TEXT, cRno TEXT, cTelNo TEXT, cYubinNo TEXT,
    iChusiFlg INTEGER, iSexKubun INTEGER, iShikakuKubun INTEGER, iSyokushuKubun INTEGER, iYaku INTEGER,
    nIDNo INTEGER NOT NULL, cEmail TEXT, iTecAbi INTEGER, iSpeechAbi INTEGER, cPhysical TEXT, iClaimRate INTEGER,
    cSikaku TEXT, cTourokuNo TEXT, cSmileCd TEXT,
    tBirthday DATETIME, tKousinDay DATETIME, tNyusyaDay DATETIME, tKisanDay DATETIME, tRday DATETIME,
    tTourokuDay DATETIME, cPcName TEXT, tUpDateTime DATETIME, cTourokuNo2 TEXT,
    iVehicleType INTEGER, cVehicleNumber TEXT, cVehicleComment TEXT, cEmployeeNumber TEXT,
    iLookAllRiyousya INTEGER, iWebLicense INTEGER, iLookCharge INTEGER, iStaffHokenTouroku INTEGER,
    cShikaiNo TEXT, cShikaiNo_Josei TEXT, iContractType INTEGER, nLat INTEGER, nLon INTEGER,
    cIninTourokuNo TEXT, iIninTourokuChk INTEGER, iKanriSekininFlg INTEGER,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo)
);

-- The branches.
CREATE TABLE KYOTEN (
    iKyotenCd INTEGER NOT NULL, iKyotenEb INTEGER NOT NULL, cKyotenName TEXT,
    PRIMARY KEY (iKyotenCd, iKyotenEb)
);

-- Insurance kinds, a short code table that is always read whole.
CREATE TABLE HOKEN (
    iKyotenCd INTEGER, iKyotenEb INTEGER, cName TEXT, cRyaku TEXT, cType TEXT, iType INTEGER
);

-- Claim forms; print types 0 and 1 are system-wide and stand under branch 0, 0.
CREATE TABLE SHINSEISYO (
    iKyotenCd INTEGER NOT NULL, iKyotenEb INTEGER NOT NULL, nIDNo INTEGER NOT NULL, cFileName TEXT, cDispName TEXT,
    iSejutsuKubun INTEGER, iHokenType INTEGER, iDelFlg INTEGER, iSinseiTP INTEGER, iSoufushoTP INTEGER,
    iDuplexFlg INTEGER, iStateNo INTEGER, iRiyouHokenKbn INTEGER, tUpDateTime DATETIME, iPrintType INTEGER NOT NULL,
    iKubun INTEGER, iKanagawaStaffPrint INTEGER, iJoseiFutanKiriage INTEGER, iTekiyouStaff INTEGER,
    PRIMARY KEY (iKyotenCd, iKyotenEb, iPrintType, nIDNo)
);

-- Official fees; the dates are texts YYYY/MM/DD.
CREATE TABLE 療養費単価 (
    cStartDate TEXT, cEndDate TEXT, iTankaKbn INTEGER, nTankaCode INTEGER, nTanka INTEGER
);

-- Bands of the visit charge; nMaxLen is inclusive, in metres.
CREATE TABLE 往療費区分 (
    cStartDate TEXT, cEndDate TEXT, nKingakuOuryou INTEGER, nMaxLen INTEGER
);

-- Map pictures; nIDNo 0 stands for the company.
CREATE TABLE RIYOUSHA_MAP (
    iKyotenCd INTEGER NOT NULL, iKyotenEb INTEGER NOT NULL, nIDNo INTEGER NOT NULL,
    bAddr1 BLOB, bAddr2 BLOB, bAddr3 BLOB, dTimeStamp DATETIME,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo)
);

-- Which staff member is in charge of a consultation; one consultation may have several.
CREATE TABLE SOUDAN_TANTOU (
    nIDNo INTEGER, iStaffKyotenCd INTEGER, iStaffKyotenEb INTEGER, nStaffIDNo INTEGER
);
CREATE INDEX SOUDAN_TANTOU_STAFF ON SOUDAN_TANTOU (iStaffKyotenCd, iStaffKyotenEb, nStaffIDNo);
