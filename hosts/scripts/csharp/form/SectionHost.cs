using System.ComponentModel;
using System.Windows.Forms;

// The control as a Windows Forms control, without a generated wrapper: AxHost does the hosting,
// and its members are reached late bound through Section.
[DesignerCategory("")]
sealed class SectionHost : AxHost
{
    public SectionHost() : base("8A6F972D-535F-4438-972A-00CA8732D855")
    {
    }

    // The control's members. There are none before the form has made its windows.
    public dynamic Section
    {
        get { return GetOcx(); }
    }
}
