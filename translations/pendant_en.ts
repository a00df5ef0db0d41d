<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="zh_CN">
<context>
    <name>App</name>
    <message>
        <source>屏幕已锁定，不能操作：%1</source>
        <translation>Screen locked, not available: %1</translation>
    </message>
    <message>
        <source>请先登录（需要%2）：%1</source>
        <translation>Log in first (%2 needed): %1</translation>
    </message>
    <message>
        <source>权限不足：%1需要%2权限</source>
        <translation>Not permitted: %1 needs the role %2</translation>
    </message>
    <message>
        <source>操作员</source>
        <translation>Operator</translation>
    </message>
    <message>
        <source>技术员</source>
        <translation>Technician</translation>
    </message>
    <message>
        <source>管理员</source>
        <translation>Administrator</translation>
    </message>
    <message>
        <source>未登录</source>
        <translation>Nobody logged in</translation>
    </message>
</context>
<context>
    <name>AuditLog</name>
    <message>
        <source>审计日志结束，缺少 %1 条记录</source>
        <translation>The audit log ends with %1 entries missing</translation>
    </message>
    <message>
        <source>审计日志无法写入：%1</source>
        <translation>The audit log cannot be written: %1</translation>
    </message>
    <message>
        <source>审计日志恢复写入，缺少 %1 条记录</source>
        <translation>The audit log can be written again; %1 entries are missing</translation>
    </message>
</context>
<context>
    <name>CommandInsert</name>
    <message>
        <source>运行次数</source>
        <translation>Run count</translation>
    </message>
</context>
<context>
    <name>Controller</name>
    <message>
        <source>未动作：请上电并按住使能键</source>
        <translation>Not moved: power on and hold the enabling key</translation>
    </message>
    <message>
        <source>点动只能在示教模式下进行</source>
        <translation>Jogging needs teach mode</translation>
    </message>
    <message>
        <source>未动作：目标点不可达</source>
        <translation>Not moved: the point cannot be reached</translation>
    </message>
    <message>
        <source>已停止：轴到达限位</source>
        <translation>Stopped: an axis is at its limit</translation>
    </message>
    <message>
        <source>机器人没有该轴</source>
        <translation>The robot has no such axis</translation>
    </message>
    <message>
        <source>控制器的参数已损坏，不能读取；未作任何修改</source>
        <translation>Controller parameters are damaged and cannot be read. Nothing was changed</translation>
    </message>
    <message>
        <source>控制器的参数已恢复，请重新打开页面</source>
        <translation>Controller parameters are put right. Open the page again</translation>
    </message>
    <message>
        <source>未保存：控制器的参数存储不可用</source>
        <translation>Not saved: the controller&apos;s parameter store is not available</translation>
    </message>
    <message>
        <source>未执行：另一台示教器正在控制机器人</source>
        <translation>Not done: another teach pendant has control of the robots</translation>
    </message>
    <message>
        <source>使能中断：请松开使能键后重新按住</source>
        <translation>Enabling was interrupted: let go of the enable key and hold it again</translation>
    </message>
    <message>
        <source>未执行：%1 正在控制机器人</source>
        <translation>Not done: %1 has control of the robots</translation>
    </message>
    <message>
        <source>控制器拒绝了该设置</source>
        <translation>Setting refused by the controller</translation>
    </message>
    <message>
        <source>控制器拒绝了该设置：%1</source>
        <translation>Setting refused by the controller: %1</translation>
    </message>
</context>
<context>
    <name>EntryPanel</name>
    <message>
        <source>输入</source>
        <translation>Entry</translation>
    </message>
    <message>
        <source>%1（%2）</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>原值 %1</source>
        <translation>Was %1</translation>
    </message>
    <message>
        <source>最多%1个字符</source>
        <translation>At most %1 characters</translation>
    </message>
    <message>
        <source>此处不能输入“%1”</source>
        <translation>“%1” cannot be entered here</translation>
    </message>
    <message>
        <source>此值不可用，请修改</source>
        <translation>This value cannot be used; please change it</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>无法写入 %1：%2</source>
        <translation>Cannot write %1: %2</translation>
    </message>
</context>
<context>
    <name>EventModel</name>
    <message>
        <source>发送消息</source>
        <translation>Message sent</translation>
    </message>
    <message>
        <source>提示</source>
        <translation>Message shown</translation>
    </message>
    <message>
        <source>询问</source>
        <translation>Question</translation>
    </message>
    <message>
        <source>询问结束</source>
        <translation>Question closed</translation>
    </message>
    <message>
        <source>日志</source>
        <translation>Log</translation>
    </message>
    <message>
        <source>权限</source>
        <translation>Rights</translation>
    </message>
    <message>
        <source>遮盖</source>
        <translation>Cover</translation>
    </message>
    <message>
        <source>取消遮盖</source>
        <translation>Uncover</translation>
    </message>
    <message>
        <source>安全开关</source>
        <translation>Safety switch</translation>
    </message>
    <message>
        <source>等待</source>
        <translation>Wait</translation>
    </message>
    <message>
        <source>程序</source>
        <translation>Job</translation>
    </message>
    <message>
        <source>配置</source>
        <translation>Configuration</translation>
    </message>
    <message>
        <source>链路</source>
        <translation>Link</translation>
    </message>
    <message>
        <source>按键</source>
        <translation>Key</translation>
    </message>
    <message>
        <source>读取错误</source>
        <translation>Unreadable</translation>
    </message>
    <message>
        <source>序号</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>时间</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>类别</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>内容</source>
        <translation>Content</translation>
    </message>
    <message>
        <source>控制器</source>
        <translation>Controller</translation>
    </message>
</context>
<context>
    <name>EventPage</name>
    <message>
        <source>无法创建目录 %1</source>
        <translation>Cannot make the directory %1</translation>
    </message>
    <message>
        <source>事件已导出：%1</source>
        <translation>Events exported: %1</translation>
    </message>
    <message>
        <source>%1 条</source>
        <translation>%1 entries</translation>
    </message>
    <message>
        <source>类别</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>消息号</source>
        <translation>Message id</translation>
    </message>
    <message>
        <source>导出</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>选择一条事件，此处显示完整内容</source>
        <translation>Select an event to see it whole</translation>
    </message>
    <message>
        <source>全部</source>
        <translation>All</translation>
    </message>
</context>
<context>
    <name>JobDirectory</name>
    <message>
        <source>目录 %1 不能使用：%2</source>
        <translation>Folder %1 cannot be used: %2</translation>
    </message>
    <message>
        <source>不是文件：%1</source>
        <translation>Not a file: %1</translation>
    </message>
    <message>
        <source>文件太大</source>
        <translation>The file is too large</translation>
    </message>
    <message>
        <source>同名的%1已存在</source>
        <translation>There is something else of that name: %1</translation>
    </message>
    <message>
        <source>文件</source>
        <translation>file</translation>
    </message>
    <message>
        <source>链接</source>
        <translation>link</translation>
    </message>
    <message>
        <source>文件夹</source>
        <translation>folder</translation>
    </message>
    <message>
        <source>设备</source>
        <translation>device</translation>
    </message>
    <message>
        <source>管道</source>
        <translation>pipe</translation>
    </message>
    <message>
        <source>套接字</source>
        <translation>socket</translation>
    </message>
    <message>
        <source>未知类型</source>
        <translation>of an unknown kind</translation>
    </message>
</context>
<context>
    <name>JobEdit</name>
    <message>
        <source>程序 %1 未能保存：%2。程序仍在内存中，请在作业列表中重新保存或放弃</source>
        <translation>Program %1 could not be saved: %2. It is still in memory; save it again or drop it in the job list</translation>
    </message>
</context>
<context>
    <name>JobFault</name>
    <message>
        <source>没有错误</source>
        <translation>No fault</translation>
    </message>
    <message>
        <source>不是作业文件</source>
        <translation>Not a job file</translation>
    </message>
    <message>
        <source>不认识的文件版本 %1</source>
        <translation>Unknown file version %1</translation>
    </message>
    <message>
        <source>文件不完整</source>
        <translation>The file is incomplete</translation>
    </message>
    <message>
        <source>多余的内容：%1</source>
        <translation>Something is too much: %1</translation>
    </message>
    <message>
        <source>不认识的指令 %1</source>
        <translation>Unknown command %1</translation>
    </message>
    <message>
        <source>缺少字段 %1</source>
        <translation>Field %1 is missing</translation>
    </message>
    <message>
        <source>字段 %1 的值不能读取</source>
        <translation>The value of field %1 cannot be read</translation>
    </message>
    <message>
        <source>没有位置 %1</source>
        <translation>There is no position %1</translation>
    </message>
    <message>
        <source>循环没有结束</source>
        <translation>The loop has no end</translation>
    </message>
    <message>
        <source>循环结束没有对应的开始</source>
        <translation>The end of a loop has no beginning</translation>
    </message>
    <message>
        <source>条件无效</source>
        <translation>The condition is not valid</translation>
    </message>
    <message>
        <source>控制器没有端口 %1</source>
        <translation>The controller has no port %1</translation>
    </message>
    <message>
        <source>控制器没有变量 %1</source>
        <translation>The controller has no variable %1</translation>
    </message>
    <message>
        <source>作业太长，最多 %1 行</source>
        <translation>The job is too long; %1 lines at most</translation>
    </message>
    <message>
        <source>控制器报告：%1</source>
        <translation>The controller reports: %1</translation>
    </message>
    <message>
        <source>%1 重复</source>
        <translation>%1 stands twice</translation>
    </message>
    <message>
        <source>%1 的顺序不对</source>
        <translation>%1 is out of order</translation>
    </message>
    <message>
        <source>控制器不接受这个作业名称</source>
        <translation>The controller does not take this job name</translation>
    </message>
    <message>
        <source>控制器中这台机器人的作业已满，最多 %1 个</source>
        <translation>The controller keeps at most %1 jobs for this robot</translation>
    </message>
    <message>
        <source>控制器中这台机器人的作业空间已满，最多 %1</source>
        <translation>The controller keeps at most %1 of jobs for this robot</translation>
    </message>
</context>
<context>
    <name>JobPage</name>
    <message>
        <source>机器人 %1 · %2 个作业</source>
        <translation>Robot %1 · jobs: %2</translation>
    </message>
    <message>
        <source>未保存：%1</source>
        <translation>Not saved: %1</translation>
    </message>
    <message>
        <source>检查中</source>
        <translation>Being checked</translation>
    </message>
    <message>
        <source>通过</source>
        <translation>Accepted</translation>
    </message>
    <message>
        <source>未发送</source>
        <translation>Not sent</translation>
    </message>
    <message>
        <source>作业 %1 不能打开：%2</source>
        <translation>Job %1 cannot be opened: %2</translation>
    </message>
    <message>
        <source>作业 %1 未发送：%2</source>
        <translation>Job %1 was not sent: %2</translation>
    </message>
    <message>
        <source>作业 %1 已保存</source>
        <translation>Job %1 is saved</translation>
    </message>
    <message>
        <source>作业 %1 仍未保存：%2</source>
        <translation>Job %1 is still not saved: %2</translation>
    </message>
    <message>
        <source>%1（未保存）</source>
        <translation>%1 (not saved)</translation>
    </message>
    <message>
        <source>作业 %1 不能删除：%2</source>
        <translation>Job %1 cannot be deleted: %2</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>日期</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>大小</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>状态</source>
        <translation>State</translation>
    </message>
    <message>
        <source>这台机器人还没有作业。
码垛的程序向导完成后，作业会出现在这里。</source>
        <translation>This robot has no jobs yet.
The program wizard of palletising puts its jobs here.</translation>
    </message>
    <message>
        <source>排序：最新在前</source>
        <translation>Sorted: newest first</translation>
    </message>
    <message>
        <source>排序：按名称</source>
        <translation>Sorted: by name</translation>
    </message>
    <message>
        <source>打开</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>发送到控制器</source>
        <translation>Send to controller</translation>
    </message>
    <message>
        <source>重新保存</source>
        <translation>Save again</translation>
    </message>
    <message>
        <source>放弃</source>
        <translation>Drop</translation>
    </message>
    <message>
        <source>删除</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>不可读：%1</source>
        <translation>Not readable: %1</translation>
    </message>
    <message>
        <source>%1（链接）</source>
        <translation>%1 (link)</translation>
    </message>
</context>
<context>
    <name>JobStore</name>
    <message>
        <source>名称 %1 不能用作文件名</source>
        <translation>The name %1 is no file name</translation>
    </message>
</context>
<context>
    <name>JobViewer</name>
    <message>
        <source>文件已损坏，按文本显示。%1</source>
        <translation>The file is damaged and shown as text. %1</translation>
    </message>
    <message>
        <source>未保存，只在内存中：%1</source>
        <translation>Not saved, in memory only: %1</translation>
    </message>
    <message>
        <source>控制器不接受此作业。%1</source>
        <translation>The controller refuses this job. %1</translation>
    </message>
    <message>
        <source>%1 行</source>
        <translation>Lines: %1</translation>
    </message>
    <message>
        <source>返回</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>选择一行，此处显示文件中的全部字段</source>
        <translation>Select a line; all of its fields in the file show here</translation>
    </message>
</context>
<context>
    <name>JobWords</name>
    <message>
        <source>第 %1 行：%2</source>
        <translation>Line %1: %2</translation>
    </message>
</context>
<context>
    <name>JogPad</name>
    <message>
        <source>关节</source>
        <translation>Joint</translation>
    </message>
    <message>
        <source>直角</source>
        <translation>XYZ</translation>
    </message>
    <message>
        <source>点动 %1 负向</source>
        <translation>Jog %1 backwards</translation>
    </message>
    <message>
        <source>点动 %1 正向</source>
        <translation>Jog %1 forwards</translation>
    </message>
</context>
<context>
    <name>KeyColumn</name>
    <message>
        <source>示教</source>
        <translation>Teach</translation>
    </message>
    <message>
        <source>自动</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>远程</source>
        <translation>Remote</translation>
    </message>
    <message>
        <source>伺服
%1</source>
        <translation>Servo
%1</translation>
    </message>
    <message>
        <source>未知</source>
        <translation>?</translation>
    </message>
    <message>
        <source>开</source>
        <translation>On</translation>
    </message>
    <message>
        <source>关</source>
        <translation>Off</translation>
    </message>
    <message>
        <source>使能
（按住）
%1</source>
        <translation>Enable
(hold)
%1</translation>
    </message>
    <message>
        <source>有效</source>
        <translation>held</translation>
    </message>
    <message>
        <source>无效</source>
        <translation>released</translation>
    </message>
    <message>
        <source>模式</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>机器人</source>
        <translation>Robot</translation>
    </message>
    <message>
        <source>机器人 %1</source>
        <translation>Robot %1</translation>
    </message>
    <message>
        <source>一轴</source>
        <translation>1 axis</translation>
    </message>
    <message>
        <source>三轴</source>
        <translation>3 axes</translation>
    </message>
    <message>
        <source>四轴</source>
        <translation>4 axes</translation>
    </message>
    <message>
        <source>五轴</source>
        <translation>5 axes</translation>
    </message>
    <message>
        <source>七轴</source>
        <translation>7 axes</translation>
    </message>
    <message>
        <source>六轴</source>
        <translation>6 axes</translation>
    </message>
    <message>
        <source>%1  %2</source>
        <translation>%1  %2</translation>
    </message>
    <message>
        <source>点动</source>
        <translation>Jog</translation>
    </message>
</context>
<context>
    <name>Keypad</name>
    <message>
        <source>清空</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>已有小数点</source>
        <translation>There is a decimal point already</translation>
    </message>
    <message>
        <source>此处不能输入负号</source>
        <translation>No minus sign can be entered here</translation>
    </message>
</context>
<context>
    <name>LetterKeyboard</name>
    <message>
        <source>空格</source>
        <translation>Space</translation>
    </message>
    <message>
        <source>清空</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>LinkLamp</name>
    <message>
        <source>已连接</source>
        <translation>Connected</translation>
    </message>
    <message>
        <source>连接中</source>
        <translation>Connecting</translation>
    </message>
    <message>
        <source>已断开</source>
        <translation>Link lost</translation>
    </message>
    <message>
        <source>未连接</source>
        <translation>No link</translation>
    </message>
</context>
<context>
    <name>LoginPage</name>
    <message>
        <source>密码错误。请等待 %1 秒后再试</source>
        <translation>Wrong password. Try again in %1 s</translation>
    </message>
    <message>
        <source>两次输入的密码不一致</source>
        <translation>The two passwords differ</translation>
    </message>
    <message>
        <source>没有这个用户</source>
        <translation>There is no such user</translation>
    </message>
    <message>
        <source>首次启动：请设置管理员密码</source>
        <translation>First start: set the administrator&apos;s password</translation>
    </message>
    <message>
        <source>屏幕已锁定，请登录</source>
        <translation>Screen locked, please log in</translation>
    </message>
    <message>
        <source>用户</source>
        <translation>User</translation>
    </message>
    <message>
        <source>新密码</source>
        <translation>New password</translation>
    </message>
    <message>
        <source>密码</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>再次输入</source>
        <translation>Again</translation>
    </message>
    <message>
        <source>设置密码并进入</source>
        <translation>Set password and go on</translation>
    </message>
    <message>
        <source>登录</source>
        <translation>Log in</translation>
    </message>
    <message>
        <source>至少 %1 个字符，用户名为 %2</source>
        <translation>At least %1 characters; the user name is %2</translation>
    </message>
    <message>
        <source>请等待 %1 秒后再试</source>
        <translation>Try again in %1 s</translation>
    </message>
    <message>
        <source>请输入密码</source>
        <translation>Please enter the password</translation>
    </message>
    <message>
        <source>密码错误。请重新输入密码</source>
        <translation>Wrong password. Please enter the password again</translation>
    </message>
</context>
<context>
    <name>NewTechnologyWidget</name>
    <message>
        <source>焊接</source>
        <translation>Welding</translation>
    </message>
    <message>
        <source>视觉</source>
        <translation>Vision</translation>
    </message>
    <message>
        <source>电批</source>
        <translation>Screwdriver</translation>
    </message>
    <message>
        <source>其他工艺</source>
        <translation>Other process</translation>
    </message>
    <message>
        <source>此处显示“%1”页面，由相应的工艺组件提供。
当前设备未安装该组件。</source>
        <translation>The page “%1” shows here; a process component of its own provides it.
It is not installed on this device.</translation>
    </message>
    <message>
        <source>返回</source>
        <translation>Return</translation>
    </message>
</context>
<context>
    <name>PageTitle</name>
    <message>
        <source>工艺</source>
        <translation>Process</translation>
    </message>
    <message>
        <source>码垛工艺</source>
        <translation>Palletising</translation>
    </message>
    <message>
        <source>激光切割工艺</source>
        <translation>Laser cutting</translation>
    </message>
    <message>
        <source>码垛导航</source>
        <translation>Palletising steps</translation>
    </message>
    <message>
        <source>码垛 - 抓手设置</source>
        <translation>Palletising - gripper</translation>
    </message>
    <message>
        <source>码垛 - 托盘设置</source>
        <translation>Palletising - tray</translation>
    </message>
    <message>
        <source>码垛 - 位置设置</source>
        <translation>Palletising - positions</translation>
    </message>
    <message>
        <source>码垛 - 工件参数</source>
        <translation>Palletising - workpiece</translation>
    </message>
    <message>
        <source>码垛 - 接近参数</source>
        <translation>Palletising - approach</translation>
    </message>
    <message>
        <source>码垛 - 重叠模式</source>
        <translation>Palletising - layers</translation>
    </message>
    <message>
        <source>码垛 - 平面模式</source>
        <translation>Palletising - layer pattern</translation>
    </message>
    <message>
        <source>码垛 - 多重计数</source>
        <translation>Palletising - multiple count</translation>
    </message>
    <message>
        <source>码垛 - 程序向导</source>
        <translation>Palletising - job wizard</translation>
    </message>
    <message>
        <source>简易码垛</source>
        <translation>Easy palletising</translation>
    </message>
    <message>
        <source>简易码垛 - 抓手设置</source>
        <translation>Easy palletising - gripper</translation>
    </message>
    <message>
        <source>简易码垛 - 位置设置</source>
        <translation>Easy palletising - positions</translation>
    </message>
    <message>
        <source>专用工艺</source>
        <translation>Special process</translation>
    </message>
    <message>
        <source>传送带跟踪工艺</source>
        <translation>Conveyor tracking</translation>
    </message>
    <message>
        <source>传送带 - 跟踪参数</source>
        <translation>Conveyor - tracking</translation>
    </message>
    <message>
        <source>激光 - 打孔参数</source>
        <translation>Laser - piercing</translation>
    </message>
    <message>
        <source>激光 - 切割参数</source>
        <translation>Laser - cutting</translation>
    </message>
    <message>
        <source>激光 - 模拟量设置</source>
        <translation>Laser - analog</translation>
    </message>
    <message>
        <source>激光 - IO设置</source>
        <translation>Laser - IO</translation>
    </message>
    <message>
        <source>激光 - 手动操作</source>
        <translation>Laser - manual</translation>
    </message>
    <message>
        <source>打磨工艺</source>
        <translation>Polishing</translation>
    </message>
    <message>
        <source>打磨参数</source>
        <translation>Polishing parameters</translation>
    </message>
    <message>
        <source>喷涂工艺</source>
        <translation>Spraying</translation>
    </message>
    <message>
        <source>喷涂 - 模拟量设置</source>
        <translation>Spraying - analog</translation>
    </message>
    <message>
        <source>喷涂 - 数字量设置</source>
        <translation>Spraying - digital</translation>
    </message>
    <message>
        <source>喷涂 - 时序设置</source>
        <translation>Spraying - sequence</translation>
    </message>
    <message>
        <source>喷涂 - 手动操作</source>
        <translation>Spraying - manual</translation>
    </message>
    <message>
        <source>喷涂 - 跟踪参数</source>
        <translation>Spraying - track</translation>
    </message>
    <message>
        <source>传送带 - 基本信息</source>
        <translation>Conveyor - basics</translation>
    </message>
    <message>
        <source>传送带 - 工具与检测源</source>
        <translation>Conveyor - tool and sensor</translation>
    </message>
    <message>
        <source>传送带 - 标定</source>
        <translation>Conveyor - calibration</translation>
    </message>
    <message>
        <source>传送带 - 第二种标定</source>
        <translation>Conveyor - second calibration</translation>
    </message>
    <message>
        <source>传送带 - 位置设置</source>
        <translation>Conveyor - window</translation>
    </message>
    <message>
        <source>码垛类型</source>
        <translation>Palletising type</translation>
    </message>
    <message>
        <source>码垛 - 位置调试</source>
        <translation>Palletising - location</translation>
    </message>
    <message>
        <source>电批</source>
        <translation>Screwdriver</translation>
    </message>
    <message>
        <source>焊接</source>
        <translation>Welding</translation>
    </message>
    <message>
        <source>视觉</source>
        <translation>Vision</translation>
    </message>
</context>
<context>
    <name>Pendant</name>
    <message>
        <source>模拟控制器无法启动：%1</source>
        <translation>The simulated controller does not start: %1</translation>
    </message>
</context>
<context>
    <name>PromptWidget</name>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>用户坐标标定</source>
        <translation>User coordinates</translation>
    </message>
    <message>
        <source>用户坐标标定成功：%1</source>
        <translation>User coordinates calibrated: %1</translation>
    </message>
    <message>
        <source>用户坐标标定成功。</source>
        <translation>User coordinates calibrated.</translation>
    </message>
    <message>
        <source>用户坐标标定失败，请重新标定：%1</source>
        <translation>Calibration failed, please repeat it: %1</translation>
    </message>
    <message>
        <source>用户坐标标定失败，请重新标定。</source>
        <translation>Calibration failed, please repeat it.</translation>
    </message>
    <message>
        <source>返回上一页</source>
        <translation>Previous page</translation>
    </message>
    <message>
        <source>返回上一页将清除已填写的数据（%1），确定返回吗？</source>
        <translation>Going back clears what was entered (%1). Go back?</translation>
    </message>
    <message>
        <source>返回上一页将清除已填写的数据，确定返回吗？</source>
        <translation>Going back clears what was entered. Go back?</translation>
    </message>
    <message>
        <source>退出创建程序</source>
        <translation>Leave the wizard</translation>
    </message>
    <message>
        <source>程序%1尚未生成，退出将清除已填写的数据，确定退出吗？</source>
        <translation>Job %1 is not generated yet; leaving clears what was entered. Leave?</translation>
    </message>
    <message>
        <source>程序尚未生成，退出将清除已填写的数据，确定退出吗？</source>
        <translation>The job is not generated yet; leaving clears what was entered. Leave?</translation>
    </message>
    <message>
        <source>复制码垛参数</source>
        <translation>Copy palletising parameters</translation>
    </message>
    <message>
        <source>将%1的码垛参数复制到：</source>
        <translation>Copy the palletising parameters of %1 to:</translation>
    </message>
    <message>
        <source>将当前工艺号的码垛参数复制到：</source>
        <translation>Copy the parameters of this process number to:</translation>
    </message>
    <message>
        <source>清空码垛参数</source>
        <translation>Clear palletising parameters</translation>
    </message>
    <message>
        <source>确定清空%1吗？</source>
        <translation>Clear %1?</translation>
    </message>
    <message>
        <source>确定清空当前工艺号的参数吗？</source>
        <translation>Clear the parameters of this process number?</translation>
    </message>
    <message>
        <source>复制图形</source>
        <translation>Copy pattern</translation>
    </message>
    <message>
        <source>将工艺号%1的当前图形复制到：</source>
        <translation>Copy this pattern of process number %1 to:</translation>
    </message>
    <message>
        <source>将当前图形复制到：</source>
        <translation>Copy this pattern to:</translation>
    </message>
    <message>
        <source>切换码垛模式</source>
        <translation>Change palletising mode</translation>
    </message>
    <message>
        <source>确定将%1切换为简易码垛模式吗？</source>
        <translation>Change %1 to easy mode?</translation>
    </message>
    <message>
        <source>确定切换为简易码垛模式吗？</source>
        <translation>Change to easy mode?</translation>
    </message>
    <message>
        <source>确定将%1切换为完整码垛模式吗？</source>
        <translation>Change %1 to complete mode?</translation>
    </message>
    <message>
        <source>确定切换为完整码垛模式吗？</source>
        <translation>Change to complete mode?</translation>
    </message>
    <message>
        <source>清空传送带参数</source>
        <translation>Clear conveyor parameters</translation>
    </message>
    <message>
        <source>确定清空当前传送带的参数吗？</source>
        <translation>Clear the parameters of this conveyor?</translation>
    </message>
    <message>
        <source>复制传送带参数</source>
        <translation>Copy conveyor parameters</translation>
    </message>
    <message>
        <source>将%1的传送带参数复制到：</source>
        <translation>Copy the conveyor parameters of %1 to:</translation>
    </message>
    <message>
        <source>将当前工艺号的传送带参数复制到：</source>
        <translation>Copy the parameters of this process number to:</translation>
    </message>
    <message>
        <source>删除程序</source>
        <translation>Delete program</translation>
    </message>
    <message>
        <source>确定删除程序%1吗？删除后不能恢复。</source>
        <translation>Delete program %1? It cannot be restored.</translation>
    </message>
    <message>
        <source>确定删除所选程序吗？删除后不能恢复。</source>
        <translation>Delete the selected program? It cannot be restored.</translation>
    </message>
    <message>
        <source>工艺号</source>
        <translation>Process no.</translation>
    </message>
    <message>
        <source>图形号</source>
        <translation>Pattern no.</translation>
    </message>
    <message>
        <source>控制器参数已损坏</source>
        <translation>Controller parameters damaged</translation>
    </message>
    <message>
        <source>控制器的参数不能读取。取回%1的备份吗？不能读取的参数将是当时的值；损坏的文件会另外保留。</source>
        <translation>Controller parameters cannot be read. Take back the copy of %1? What cannot be read gets its values of that day; the damaged file is kept aside.</translation>
    </message>
    <message>
        <source>控制器的参数不能读取。取回最近的备份吗？损坏的文件会另外保留。</source>
        <translation>Controller parameters cannot be read. Take back the last copy? The damaged file is kept aside.</translation>
    </message>
    <message>
        <source>取回备份</source>
        <translation>Take back</translation>
    </message>
    <message>
        <source>控制器的参数不能读取，也没有备份。将不能读取的参数清空吗？损坏的文件会另外保留。</source>
        <translation>Controller parameters cannot be read and there is no copy. Clear what cannot be read? The damaged file is kept aside.</translation>
    </message>
    <message>
        <source>清空</source>
        <translation>Clear</translation>
    </message>
</context>
<context>
    <name>Robot</name>
    <message>
        <source>控制器未连接，指令未发送</source>
        <translation>No controller connected: not sent</translation>
    </message>
    <message>
        <source>程序太大，不能发送给控制器</source>
        <translation>The program is too large for the controller</translation>
    </message>
    <message>
        <source>控制器未连接</source>
        <translation>No controller is connected</translation>
    </message>
</context>
<context>
    <name>SimulatedMark</name>
    <message>
        <source>模拟
控制器</source>
        <translation>Simulated
controller</translation>
    </message>
</context>
<context>
    <name>SnackbarPanel</name>
    <message>
        <source>提示</source>
        <translation>Notice</translation>
    </message>
    <message>
        <source>警告</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>注意</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>消息</source>
        <translation>Message</translation>
    </message>
</context>
<context>
    <name>Startup</name>
    <message>
        <source>文件不见了</source>
        <translation>The file is gone</translation>
    </message>
    <message>
        <source>文件不是配置数据库</source>
        <translation>The file is no configuration database</translation>
    </message>
    <message>
        <source>文件内容损坏</source>
        <translation>The file is damaged</translation>
    </message>
    <message>
        <source>文件不完整</source>
        <translation>The file is incomplete</translation>
    </message>
    <message>
        <source>用户数据无法读取</source>
        <translation>The users cannot be read</translation>
    </message>
    <message>
        <source>文件由更新版本的程序写入</source>
        <translation>Written by a newer version of the program</translation>
    </message>
    <message>
        <source>文件无法读取</source>
        <translation>The file cannot be read</translation>
    </message>
    <message>
        <source>数据目录正在被另一个程序使用</source>
        <translation>Another program uses the data directory</translation>
    </message>
    <message>
        <source>同一个数据目录只能由一个程序使用。请先结束那个程序，再重试。</source>
        <translation>Only one program can use a data directory. End the other program first, then try again.</translation>
    </message>
    <message>
        <source>数据目录无法写入</source>
        <translation>The data directory cannot be written</translation>
    </message>
    <message>
        <source>日志文件无法写入</source>
        <translation>The log file cannot be written</translation>
    </message>
    <message>
        <source>可以继续运行，但本次运行的日志不会保存。</source>
        <translation>The pendant can go on, but the log of this run is not kept.</translation>
    </message>
    <message>
        <source>配置和用户无法读取</source>
        <translation>Configuration and users cannot be read</translation>
    </message>
    <message>
        <source>取回副本后，副本之后的更改会丢失。原来的文件会另存，不会删除。</source>
        <translation>Taking back a copy loses what was changed after it. The present file is kept aside, not deleted.</translation>
    </message>
    <message>
        <source>重试</source>
        <translation>Try again</translation>
    </message>
    <message>
        <source>结束程序</source>
        <translation>End</translation>
    </message>
    <message>
        <source>日志文件无法写入，本次运行的日志不保存</source>
        <translation>The log file cannot be written; the log of this run is not kept</translation>
    </message>
    <message>
        <source>数据目录无法写入（%1），本次运行的更改不保存</source>
        <translation>The data directory cannot be written (%1); nothing that is changed in this run is kept</translation>
    </message>
    <message>
        <source>配置无法恢复：%1</source>
        <translation>The configuration cannot be put back: %1</translation>
    </message>
    <message>
        <source>操作员确认以空配置启动，须重新设置管理员密码</source>
        <translation>The operator confirmed a start with an empty configuration; the administrator password must be set anew</translation>
    </message>
    <message>
        <source>操作员取回配置副本 %1</source>
        <translation>The operator took back the copy %1 of the configuration</translation>
    </message>
    <message>
        <source>原配置文件另存为 %1</source>
        <translation>The file of the configuration before is kept as %1</translation>
    </message>
    <message>
        <source>程序</source>
        <translation>Program</translation>
    </message>
    <message>
        <source>进程号</source>
        <translation>Process ID</translation>
    </message>
    <message>
        <source>主机</source>
        <translation>Host</translation>
    </message>
    <message>
        <source>情况</source>
        <translation>What is wrong</translation>
    </message>
    <message>
        <source>文件</source>
        <translation>File</translation>
    </message>
    <message>
        <source>继续运行，不保存</source>
        <translation>Go on, keep nothing</translation>
    </message>
    <message>
        <source>数据目录</source>
        <translation>Data directory</translation>
    </message>
    <message>
        <source>系统信息</source>
        <translation>System message</translation>
    </message>
    <message>
        <source>恢复失败</source>
        <translation>Could not be put back</translation>
    </message>
    <message>
        <source>检查时间</source>
        <translation>Checked at</translation>
    </message>
    <message>
        <source>取回 %1 的副本（没有用户）</source>
        <translation>Take back the copy of %1 (without users)</translation>
    </message>
    <message>
        <source>取回 %1 的副本</source>
        <translation>Take back the copy of %1</translation>
    </message>
    <message>
        <source>没有可用的副本。可以以空配置启动，原来的文件会另存，不会删除。</source>
        <translation>There is no good copy. The pendant can start with an empty configuration; the present file is kept aside, not deleted.</translation>
    </message>
    <message>
        <source>以空配置启动…</source>
        <translation>Start with an empty configuration…</translation>
    </message>
    <message>
        <source>没有用户：必须重新设置管理员密码</source>
        <translation>No users: the administrator password must be set anew</translation>
    </message>
    <message>
        <source>原有的用户在本次运行中不能登录。启动后屏幕锁定，设置管理员密码后才能操作。此选择写入日志。</source>
        <translation>The users that there were cannot log in during this run. The screen starts locked, until an administrator password is set. This choice is written to the log.</translation>
    </message>
    <message>
        <source>原有的用户不再有效。启动后屏幕锁定，设置管理员密码后才能操作。此选择写入日志，原来的文件另存。</source>
        <translation>The users that there were are gone. The screen starts locked, until an administrator password is set. This choice is written to the log; the present file is kept aside.</translation>
    </message>
    <message>
        <source>返回</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>磁盘可能已满或只读。可以继续运行：已有的用户和设置照常使用，但本次运行的更改不会保存。</source>
        <translation>The disk may be full or read-only. The pendant can go on with the users and settings that there are, but nothing that is changed in this run is kept.</translation>
    </message>
    <message>
        <source>继续运行，不保存日志</source>
        <translation>Go on without a log</translation>
    </message>
    <message>
        <source>可以在本次运行中使用一个副本，文件不会改动。</source>
        <translation>A copy can be used for this run; the file is left as it is.</translation>
    </message>
    <message>
        <source>没有可用的副本。可以在本次运行中使用空配置，文件不会改动。</source>
        <translation>There is no good copy. An empty configuration can be used for this run; the file is left as it is.</translation>
    </message>
    <message>
        <source>不带用户启动</source>
        <translation>Start without users</translation>
    </message>
</context>
<context>
    <name>StatusBar</name>
    <message>
        <source>用户：%1</source>
        <translation>User: %1</translation>
    </message>
    <message>
        <source>切换语言</source>
        <translation>Change language</translation>
    </message>
    <message>
        <source>语言文件无法读取</source>
        <translation>The language file cannot be read</translation>
    </message>
    <message>
        <source>⚠ 日志不保存</source>
        <translation>⚠ Log not kept</translation>
    </message>
    <message>
        <source>⚠ 数据不保存</source>
        <translation>⚠ Nothing is kept</translation>
    </message>
    <message>
        <source>审计日志无法写入
缺少 %1 条记录</source>
        <translation>Audit log not writable
%1 entries missing</translation>
    </message>
</context>
<context>
    <name>SwitchButton</name>
    <message>
        <source>开</source>
        <translation>On</translation>
    </message>
    <message>
        <source>关</source>
        <translation>Off</translation>
    </message>
</context>
<context>
    <name>TechnologyWidget</name>
    <message>
        <source>码垛工艺</source>
        <translation>Palletising</translation>
    </message>
    <message>
        <source>焊接设置</source>
        <translation>Welding</translation>
    </message>
    <message>
        <source>视觉设置</source>
        <translation>Vision</translation>
    </message>
    <message>
        <source>专用工艺</source>
        <translation>Special process</translation>
    </message>
    <message>
        <source>传送带跟踪工艺</source>
        <translation>Conveyor tracking</translation>
    </message>
    <message>
        <source>打磨工艺</source>
        <translation>Polishing</translation>
    </message>
    <message>
        <source>喷涂工艺</source>
        <translation>Spraying</translation>
    </message>
    <message>
        <source>激光切割设置</source>
        <translation>Laser cutting settings</translation>
    </message>
    <message>
        <source>电批工艺</source>
        <translation>Screwdriver process</translation>
    </message>
    <message>
        <source>删除程序</source>
        <translation>Delete program</translation>
    </message>
    <message>
        <source>修改程序</source>
        <translation>Edit program</translation>
    </message>
    <message>
        <source>xml文件导入</source>
        <translation>Import xml files</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>链路中断
显示的是旧值</source>
        <translation>Link lost:
old values shown</translation>
    </message>
    <message>
        <source>工艺</source>
        <translation>Process</translation>
    </message>
    <message>
        <source>事件</source>
        <translation>Events</translation>
    </message>
    <message>
        <source>用户</source>
        <translation>Users</translation>
    </message>
    <message>
        <source>锁定</source>
        <translation>Lock</translation>
    </message>
    <message>
        <source>作业</source>
        <translation>Jobs</translation>
    </message>
</context>
<context>
    <name>UserAccounts</name>
    <message>
        <source>密码不能为空</source>
        <translation>The password must not be empty</translation>
    </message>
    <message>
        <source>密码至少需要 %1 个字符</source>
        <translation>The password needs at least %1 characters</translation>
    </message>
    <message>
        <source>密码最多 %1 个字符</source>
        <translation>The password has at most %1 characters</translation>
    </message>
    <message>
        <source>用户名不能为空</source>
        <translation>The user name must not be empty</translation>
    </message>
    <message>
        <source>用户名最多 %1 个字符</source>
        <translation>The user name has at most %1 characters</translation>
    </message>
    <message>
        <source>用户名含有不可显示的字符</source>
        <translation>The user name has characters that cannot be shown</translation>
    </message>
    <message>
        <source>用户 %1 已存在</source>
        <translation>User %1 exists already</translation>
    </message>
    <message>
        <source>请选择权限</source>
        <translation>Please choose a role</translation>
    </message>
    <message>
        <source>配置数据库无法写入</source>
        <translation>The configuration cannot be written</translation>
    </message>
    <message>
        <source>密码库无法初始化</source>
        <translation>The password library does not start</translation>
    </message>
    <message>
        <source>%1（未设密码）</source>
        <translation>%1 (no password set)</translation>
    </message>
    <message>
        <source>%1（%2）</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>管理员密码已设置</source>
        <translation>The administrator&apos;s password is set already</translation>
    </message>
    <message>
        <source>密码无法加密，内存不足</source>
        <translation>The password cannot be hashed: out of memory</translation>
    </message>
    <message>
        <source>已设置管理员密码</source>
        <translation>Administrator&apos;s password set</translation>
    </message>
    <message>
        <source>登录失败：没有用户 %1</source>
        <translation>Log-in failed: no user %1</translation>
    </message>
    <message>
        <source>用户 %1 登录失败，连续第 %2 次</source>
        <translation>User %1 failed to log in, %2 times in a row</translation>
    </message>
    <message>
        <source>用户 %1 登录</source>
        <translation>User %1 logged in</translation>
    </message>
    <message>
        <source>屏幕锁定，用户 %1</source>
        <translation>Screen locked, user %1</translation>
    </message>
    <message>
        <source>只有管理员可以管理用户</source>
        <translation>Only an administrator may manage users</translation>
    </message>
    <message>
        <source>第一个用户必须是管理员</source>
        <translation>The first user must be an administrator</translation>
    </message>
    <message>
        <source>添加用户 %1（%2）</source>
        <translation>User %1 added (%2)</translation>
    </message>
    <message>
        <source>没有用户 %1</source>
        <translation>There is no user %1</translation>
    </message>
    <message>
        <source>修改用户 %1 的密码</source>
        <translation>Password of user %1 changed</translation>
    </message>
    <message>
        <source>必须至少保留一个管理员</source>
        <translation>One administrator must remain</translation>
    </message>
    <message>
        <source>用户 %1 的权限改为%2</source>
        <translation>Role of user %1 changed to %2</translation>
    </message>
    <message>
        <source>不能删除当前用户</source>
        <translation>The current user cannot be deleted</translation>
    </message>
    <message>
        <source>删除用户 %1</source>
        <translation>User %1 deleted</translation>
    </message>
    <message>
        <source>用户 %1 的登录失败次数（%2）无法保存，仅在本次运行中有效</source>
        <translation>The failed log-ins of user %1 (%2) cannot be stored; they count in this run only</translation>
    </message>
    <message>
        <source>登录失败次数无法保存，请检查存储空间</source>
        <translation>The failed log-ins cannot be stored; check the storage space</translation>
    </message>
    <message>
        <source>管理用户</source>
        <translation>Manage users</translation>
    </message>
    <message>
        <source>请先登录</source>
        <translation>Please log in first</translation>
    </message>
    <message>
        <source>请等待 %1 秒后再试</source>
        <translation>Try again in %1 s</translation>
    </message>
    <message>
        <source>用户 %1 修改密码时原密码错误，连续第 %2 次</source>
        <translation>User %1 entered a wrong old password to change it, failure %2 in a row</translation>
    </message>
    <message>
        <source>修改自己的密码需要原密码</source>
        <translation>Changing your own password needs the old one</translation>
    </message>
    <message>
        <source>原密码错误。请等待 %1 秒后再试</source>
        <translation>The old password is wrong. Try again in %1 s</translation>
    </message>
</context>
<context>
    <name>UserPage</name>
    <message>
        <source>两次输入的密码不一致</source>
        <translation>The two passwords differ</translation>
    </message>
    <message>
        <source>已添加用户 %1</source>
        <translation>User %1 added</translation>
    </message>
    <message>
        <source>已修改用户 %1 的密码</source>
        <translation>Password of user %1 changed</translation>
    </message>
    <message>
        <source>用户 %1 的权限已改为%2</source>
        <translation>Role of user %1 is now %2</translation>
    </message>
    <message>
        <source>已删除用户 %1</source>
        <translation>User %1 deleted</translation>
    </message>
    <message>
        <source>确认删除？</source>
        <translation>Really?</translation>
    </message>
    <message>
        <source>删除用户</source>
        <translation>Delete user</translation>
    </message>
    <message>
        <source>再按一次删除用户 %1</source>
        <translation>Press again to delete user %1</translation>
    </message>
    <message>
        <source>从不</source>
        <translation>Never</translation>
    </message>
    <message>
        <source>%1 分钟</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>用户名</source>
        <translation>User name</translation>
    </message>
    <message>
        <source>权限</source>
        <translation>Role</translation>
    </message>
    <message>
        <source>新密码</source>
        <translation>New password</translation>
    </message>
    <message>
        <source>再次输入</source>
        <translation>Again</translation>
    </message>
    <message>
        <source>添加用户</source>
        <translation>Add user</translation>
    </message>
    <message>
        <source>修改密码</source>
        <translation>Set password</translation>
    </message>
    <message>
        <source>修改权限</source>
        <translation>Change role</translation>
    </message>
    <message>
        <source>无操作自动锁定</source>
        <translation>Lock when idle</translation>
    </message>
    <message>
        <source>原密码</source>
        <translation>Old password</translation>
    </message>
    <message>
        <source>修改自己的密码时</source>
        <translation>For your own password</translation>
    </message>
</context>
<context>
    <name>VeltrixDatabase</name>
    <message>
        <source>配置数据库写入失败：%1</source>
        <translation>Writing the configuration failed: %1</translation>
    </message>
    <message>
        <source>无法打开 %1：%2</source>
        <translation>Cannot open %1: %2</translation>
    </message>
    <message>
        <source>配置的当日副本无法写入：%1</source>
        <translation>Today&apos;s copy of the configuration cannot be written: %1</translation>
    </message>
</context>
<context>
    <name>VeltrixWidgetFoundation</name>
    <message>
        <source>工艺示教器</source>
        <translation>Teach pendant</translation>
    </message>
    <message>
        <source>事件记录</source>
        <translation>Events</translation>
    </message>
    <message>
        <source>用户与设置</source>
        <translation>Users and settings</translation>
    </message>
    <message>
        <source>还没有用户，无法锁定。请先在用户页添加管理员</source>
        <translation>No user yet, so nothing can be locked. Add an administrator on the users page first</translation>
    </message>
    <message>
        <source>作业</source>
        <translation>Jobs</translation>
    </message>
</context>
</TS>
