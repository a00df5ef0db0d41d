<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="zh_CN">
<context>
    <name>App</name>
    <message>
        <source>屏幕已锁定，不能操作：%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>请先登录（需要%2）：%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>权限不足：%1需要%2权限</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>操作员</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>技术员</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>管理员</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>未登录</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EntryPanel</name>
    <message>
        <source>输入</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1（%2）</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>原值 %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>最多%1个字符</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>此处不能输入“%1”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>此值不可用，请修改</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>无法写入 %1：%2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NewTechnologyWidget</name>
    <message>
        <source>焊接</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>视觉</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电批</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>其他工艺</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>此处显示“%1”页面，由相应的工艺组件提供。
当前设备未安装该组件。</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>返回</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Robot</name>
    <message>
        <source>控制器未连接，指令未发送</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TechnologyWidget</name>
    <message>
        <source>传送带参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>返回</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>全局参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>切割参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>模拟量匹配</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>手动操作</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>码垛参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>位置调试</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>生成文件</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>多重码垛</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>抓手1电磁阀</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>抓手2电磁阀</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>抓手3电磁阀</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>抓手4电磁阀</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>取料允许信号</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>抓手1取料成功判断</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>抓手2取料成功判断</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>抓手3取料成功判断</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>抓手4取料成功判断</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>打磨参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>打磨工艺参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>工艺号</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数值</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>注释</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>工具磨损补偿</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>工具磨损后的补偿量(mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>起点工具X方向偏移</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>在打磨起点工具坐标X方向的偏移(mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>起点工具Y方向偏移</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>在打磨起点工具坐标Y方向的偏移(mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>起点工具Z方向偏移</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>在打磨起点工具坐标Z方向的偏移(mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>终点工具X方向偏移</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>在打磨终点工具坐标X方向的偏移(mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>终点工具Y方向偏移</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>在打磨终点工具坐标Y方向的偏移(mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>终点工具Z方向偏移</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>在打磨终点工具坐标Z方向的偏移(mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>自动补偿值</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>以一定打磨次数为周期补偿(mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>自动补偿周期</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>次</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>补偿周期(次数)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>修改</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>打开</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>码垛工艺</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>焊接设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>视觉设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>激光切割工艺</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>专用工艺</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>传送带跟踪工艺</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>打磨工艺</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电批</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>喷涂工艺</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>用户</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>模拟量设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数字量设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>时序</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>轨迹参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>开枪时序</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>换料时序</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>喷漆</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>除尘</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>油量测试</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pallet tool parameter error!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pallet tray parameter error!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pallet position parameter error！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>palleteasy position parameter error！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pallet workpiece parameter error!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pallet approach parameter error!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pallet overlapping parameter error!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pallet plane parameter error!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>无</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>激光切割设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电批工艺</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>删除程序</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>修改程序</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>xml文件导入</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>参数工具磨损补偿不合理，请重新设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>参数起点工具X方向偏移不合理，请重新设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>参数起点工具Y方向偏移不合理，请重新设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>参数起点工具Z方向偏移不合理，请重新设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>参数终点工具X方向偏移不合理，请重新设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>参数终点工具Y方向偏移不合理，请重新设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>参数终点工具Z方向偏移不合理，请重新设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>参数自动补偿值不合理，请重新设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>参数自动补偿周期不合理，请重新设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>自动补偿周期不能为负数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>保存</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UserAccounts</name>
    <message>
        <source>密码不能为空</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>密码至少需要 %1 个字符</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>密码最多 %1 个字符</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>用户名不能为空</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>用户名最多 %1 个字符</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>用户名含有不可显示的字符</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>用户 %1 已存在</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>请选择权限</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>配置数据库无法写入</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>密码库无法初始化</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1（未设密码）</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1（%2）</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>管理员密码已设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>密码无法加密，内存不足</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>已设置管理员密码</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>登录失败：没有用户 %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>用户 %1 登录失败，连续第 %2 次</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>用户 %1 登录</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>屏幕锁定，用户 %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>只有管理员可以管理用户</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>第一个用户必须是管理员</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>添加用户 %1（%2）</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>没有用户 %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>修改用户 %1 的密码</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>必须至少保留一个管理员</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>用户 %1 的权限改为%2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>不能删除当前用户</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>删除用户 %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VeltrixDatabase</name>
    <message>
        <source>配置数据库写入失败：%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>无法创建目录 %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>无法打开 %1：%2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
