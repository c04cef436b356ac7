<?php

declare(strict_types=1);

namespace Zorvel\Bench\Engine;

use Smarty\Smarty as SmartyEngine;
use Zorvel\Bench\Engine;

final class Smarty implements Engine
{
    public const ?string PACKAGE = 'smarty/smarty';
    public const string EXTENSION = 'tpl';

    private readonly SmartyEngine $smarty;

    public function __construct(string $templates, string $compiled)
    {
        $this->smarty = new SmartyEngine();
        $this->smarty->setTemplateDir($templates);
        $this->smarty->setCompileDir($compiled);
        $this->smarty->setCompileCheck(SmartyEngine::COMPILECHECK_OFF);
        $this->smarty->setEscapeHtml(true);
    }

    public function render(string $template, array $data): string
    {
        $this->smarty->assign($data);

        return $this->smarty->fetch("$template.tpl");
    }

    public static function tag(string ...$keys): string
    {
        return '{$' . implode('.', $keys) . ' nofilter}';
    }

    public static function includeTag(string $template): string
    {
        return "{include file='$template.tpl'}";
    }
}
