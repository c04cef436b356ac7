<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/**
 * One way to render a page. An engine is constructed once, with the folder of its templates and a folder
 * for what it compiles, and keeps what its documentation tells a program to keep between two pages.
 */
interface Engine
{
    /** Composer's name of the package, null for what needs none. */
    public const ?string PACKAGE = null;

    /** The extension of template file names. */
    public const string EXTENSION = '';

    public function __construct(string $templates, string $compiled);

    /**
     * @param string $template a template's file name without folder and extension
     * @param array<string, mixed> $data
     */
    public function render(string $template, array $data): string;

    /** The tag that writes a value of the data without escaping it. */
    public static function tag(string ...$keys): string;

    /** The tag that includes another template, which shows $title and nothing else. */
    public static function includeTag(string $template): string;
}
