// The host API's enumerations, with the values that add-ins pass and test.

#pragma once

/// The result of every host call. A call that fails leaves its out-parameters untouched, apart from one that
/// tells the reason (an ..._e or a yes-or-no result).
enum kvResult : int {
    kvResult_Success = 0,
    kvResult_Failed = 1,   ///< refused: a bad argument, or nothing to act on
    kvResult_NotFound = 2, ///< no object of that name or kind
};

/// Whether a command name could be registered.
enum kvCreateCommandError_e : int {
    kvCreateCommand_Succeeded = 0,
    kvCreateCommand_CommandNameExisted = 1,
};

/// The notification of a command that a callback is registered for.
enum kvCommandEvent_id_e : int {
    kvCommandEvent_Execute = 1, ///< the user started the command
};

/// The state of the host's user interface that shows an item.
enum kvUIState_e : int {
    kvUIState_Document = 2, ///< with a drawing open
};

enum kvToolbarItemType_e : int {
    kvToolbarItem_Button = 1,
};

enum kvMenuItemType_e : int {
    kvMenuItem_Command = 2,
};

enum kvRibbonButtonStyle_e : int {
    kvRibbonButton_LargeWithText = 1,
};

/// Application options with 16-bit values.
enum kvApplicationOptionInt16_e : int {
    kvApplicationOption_Theme = 48, ///< 0 is light, anything else dark
};

enum kvGetApplicationOptionResult_e : int {
    kvGetApplicationOption_Succeeded = 0,
    kvGetApplicationOption_Unknown = 1,
};

/// The languages of the host's user interface.
enum kvLanguage_e : int {
    kvLanguage_German = 1,
    kvLanguage_English = 2,
    kvLanguage_Turkish = 3,
    kvLanguage_Polish = 5,
    kvLanguage_Japanese = 6,
    kvLanguage_French = 7,
    kvLanguage_Chinese = 8,
    kvLanguage_ChineseSimplified = 9,
    kvLanguage_Italian = 10,
    kvLanguage_Spanish = 11,
    kvLanguage_Korean = 13,
    kvLanguage_Russian = 18,
    kvLanguage_PortugueseBrazilian = 19,
    kvLanguage_Czech = 20,
};

/// The kinds of drawing objects that a block definition can gather.
enum kvObjectType_e : int {
    kvLineType = 21,
    kvCircleType = 22,
    kvCircleArcType = 23,
    kvSimpleNoteType = 24,
    kvEllipseArcType = 26,
    kvPolyLineType = 27,
    kvNoteType = 30,
    kvSplineType = 66,
};

/// The fate of the entities that a block definition is made of.
enum kvBlockDefinitionEntities_e : int {
    kvBlockDefinitionEntities_Move = 3, ///< they leave model space and live on in the block
};

enum kvDocumentSaveAsOption_e : int {
    kvDocumentSaveAs_Drawing =
        23, ///< a drawing file: the extension .dxf gives the text format, any other DWG
};

enum kvDocumentSaveError_e : int {
    kvDocumentSave_Succeeded = 0,
    kvDocumentSave_Failed = 1,
};

enum kvRunCommandError_e : int {
    kvRunCommand_Succeeded = 0,
    kvRunCommand_UnknownCommand = 1,
    kvRunCommand_Refused = 2, ///< another command is still running, or the command failed
};

/// The end of a prompt on the command line.
enum kvPromptResultType_e : int {
    kvPromptResult_Cancelled = 0,
    kvPromptResult_Completed = 1,
};
