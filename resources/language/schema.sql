-- Numbered messages and captions of the user interface.

CREATE TABLE Messages (MsgNo LONG, MsgLang TEXT, MsgActive BIT, MsgPrompt1 MEMO, MsgPrompt2 MEMO, MsgPrompt3 MEMO, MsgTitle TEXT, MsgHelpFile TEXT, MsgContext LONG, MsgCButtons TEXT);

CREATE TABLE tbl_Language (FormName TEXT, ControlType TEXT, controlname TEXT, [Index] LONG, Language TEXT, CaptionText MEMO, ToolTipText MEMO, controlenabled BIT, controlvisible BIT);
