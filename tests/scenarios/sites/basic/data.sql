-- A small practice, branch 1-1, in May 2024. The staff in charge differ from patient to patient, so that the order of
-- the letters is defined.

INSERT INTO KYOTEN (iKyotenCd, iKyotenEb, cKyotenName) VALUES (1, 1, '梅田'), (2, 1, '高松');

INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName, cNameKana, cNameRyaku, iChusiFlg) VALUES
    (1, 1, 11, '佐藤 花子', 'ｻﾄｳ ﾊﾅｺ', '佐藤', 0),
    (1, 1, 12, '鈴木 次郎', 'ｽｽﾞｷ ｼﾞﾛｳ', '鈴木', NULL);

INSERT INTO HOKEN (iKyotenCd, iKyotenEb, cName, cRyaku, cType, iType) VALUES
    (0, 0, '国民健康保険', '国保', '国保', 1),
    (0, 0, '後期高齢者医療', '後期', '後期', 2);

INSERT INTO HOKENJA (cIDno, cName, cSubAddress, iType) VALUES
    ('270017', '大阪市', '北区', 1),
    ('39270000', '大阪府後期高齢者医療広域連合', NULL, 2),
    ('00000000', NULL, NULL, NULL);

-- Head office, agent and group-billing company; the head office of another branch must never be used.
INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo, iType, cShamei1, cAddress1, cDaihyo, cTelNo, cKinyuName, iKinSyubetsu,
                  cKinyuSiten, iKinSiten, iKozaType, cKozaBangou, cKozaMeigi1) VALUES
    (1, 1, 1, 0, 'みどり訪問治療株式会社', '大阪市北区梅田１－２－３', '山田 太郎', '06-1111-2222', 'みずき', 1,
     '梅田', 2, 1, '1234567', 'ミドリホウモンチリヨウ（カ'),
    (1, 1, 2, 1, '受領代理さくら会', '堺市堺区南町４－５', '中村 咲', '072-333-4444', 'いずみ', 2,
     '堺', 1, 2, '0098765', 'サクラカイ'),
    (1, 1, 3, 3, '団体請求センター', '神戸市中央区港町６', '小林 実', '078-555-6666', 'みなみ', 3,
     '中央', 4, 5, '7654321', 'ダンタイセイキユウ'),
    (2, 1, 1, 0, 'よその支店', '高松市', 'よそ', '087-777-8888', 'よそ', 1, 'よそ', 2, 1, '1', 'ヨソ');

-- 1 is an ordinary patient. 2 is billed by the group; some characters are only in the code page's extensions.
-- The agent of 3 does not exist. 4 ended treatment. 5 is visited again after the 20th and the 22nd.
-- 6 has two visits on one day. The insurer of 7 does not exist. 8 has only a number. 9 is never visited.
INSERT INTO RIYOUSHA (iKyotenCd, iKyotenEb, nIDNo, cName, cAdress1, cHokenNo, iHoken, nTantou, nDairiID, tExpireDay,
                      cSetaiName, cSetaiTelNo, cSetaiAdress1) VALUES
    (1, 1, 1, '青木 一郎', '大阪市北区天神橋１－１', '270017', 1, 11, 2, NULL,
     '青木 父', '06-1234-0001', '大阪市北区天神橋１－１'),
    (1, 1, 2, '髙橋 﨑子', '大阪市北区中崎２－２', '39270000', 2, 12, 2, NULL,
     '髙橋 家主', '06-1234-0002', '大阪市北区中崎２－２'),
    (1, 1, 3, '井上 三郎', '吹田市泉町３－３', '270017', 1, 13, 99, NULL, '井上 三郎', '06-1234-0003', '吹田市泉町３－３'),
    (1, 1, 4, '上田 四郎', '吹田市泉町４－４', '270017', 1, 14, 2, '2024-05-31 00:00:00',
     '上田 四郎', '06-1234-0004', '吹田市泉町４－４'),
    (1, 1, 5, '江口 五月', '豊中市本町５－５', '270017', 1, 15, 2, NULL, '江口 五月', '06-1234-0005', '豊中市本町５－５'),
    (1, 1, 6, '大野 六花', '豊中市本町６－６', '270017', 1, 16, 2, NULL, '大野 六花', '06-1234-0006', '豊中市本町６－６'),
    (1, 1, 7, '加藤 七海', '豊中市本町７－７', '12345678', 1, 17, 2, NULL, '加藤 七海', '06-1234-0007', '豊中市本町７－７'),
    (1, 1, 8, NULL, NULL, '00000000', NULL, NULL, NULL, NULL, NULL, NULL, NULL),
    (1, 1, 9, '木村 九', '池田市栄町９－９', '270017', 1, 19, 2, NULL, '木村 九', '072-234-0009', '池田市栄町９－９'),
    (2, 1, 1, 'よその患者', '高松市', '270017', 1, 1, 1, NULL, 'よそ', '087-0', '高松市');

INSERT INTO RIYOUSHA_SUB (iKyotenCd, iKyotenEb, nIDNo, iDantaiUmu) VALUES (1, 1, 1, 0), (1, 1, 2, 1), (1, 1, 3, NULL);

INSERT INTO SCHEDULE (iKyotenCd, iKyotenEb, nIDRiyoushaNo, nIDStaffNo, nDate) VALUES
    (1, 1, 1, 12, 20240510), (1, 1, 1, 11, 20240520), (1, 1, 1, 11, 20240603),
    (1, 1, 2, 12, 20240515),
    (1, 1, 3, 11, 20240531),
    (1, 1, 4, 11, 20240507),
    (1, 1, 5, 13, 20240520), (1, 1, 5, 12, 20240528),
    (1, 1, 6, 12, 20240520), (1, 1, 6, 12, 20240520),
    (1, 1, 7, 11, 20240520),
    (1, 1, 8, 12, 20240503),
    (2, 1, 1, 1, 20240520);

INSERT INTO JISSEKI (iKyotenCd, iKyotenEb, nRiyoushaIDNo, nStaffIDNo, tServicyDayStart) VALUES
    (1, 1, 1, 11, '2024-05-08 09:30:00'), (1, 1, 1, 11, '2024-05-22 10:00:00'),
    (1, 1, 2, 12, '2024-05-22 23:59:59'),
    (1, 1, 3, 11, '2024-06-01 00:00:00'),
    (1, 1, 4, 13, '2024-05-22 00:00:00'),
    (1, 1, 5, 14, '2024-05-22 11:00:00'), (1, 1, 5, 11, '2024-05-30 11:00:00'),
    (1, 1, 6, 16, '2024-05-22 11:00:00'), (1, 1, 6, 16, '2024-05-22 15:00:00'),
    (2, 1, 1, 1, '2024-05-22 10:00:00');
